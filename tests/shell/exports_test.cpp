// What the plug-in exports is what its documentation lists.
#include <cstdio>

#include "support/qt_test.h"

namespace kalmo::test {
namespace {

std::string OutputOf(const std::string& command) {
    const std::unique_ptr<FILE, decltype([](FILE* pipe) { pclose(pipe); })> pipe(
        popen(command.c_str(), "r"));
    std::string output;
    char part[4096];
    while (std::fgets(part, sizeof part, pipe.get())) output += part;
    return output;
}

/// Of each line that starts with `before`: what follows, up to `end`.
std::set<std::string> NamesInLines(const std::string& text, const std::string& before, char end) {
    std::set<std::string> names;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(before))
            names.insert(line.substr(before.size(), line.find(end, before.size()) - before.size()));
    return names;
}

TEST(Exports, TheModuleExportsWhatTheDocumentLists) {
    const auto module = ProductBundle() / "Contents/Linux/KalmoFeatures.so";
    // A class counts once, with its functions, its table and its type.
    const auto exported = NamesInLines(
        OutputOf("nm -DC --defined-only --format=posix '" + module.string() +
                 "' | sed -E 's/^((vtable|typeinfo|typeinfo name) for )?(kalmo::\\w+).*/\\3 /'"),
        "", ' ');
    const auto document = ReadFile(std::filesystem::path(KALMO_SOURCE_DIR) / "docs/plug-in.md");
    const auto documented = NamesInLines(document.substr(document.find("## Exports")), "| `", '`');
    EXPECT_FALSE(exported.empty());
    EXPECT_EQ(exported, documented);
}

}  // namespace
}  // namespace kalmo::test
