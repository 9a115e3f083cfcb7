// What the plug-in exports is what its documentation lists.
#include "house/resource_files.h"
#include "support/programs.h"

namespace kalmo::test {
namespace {

std::set<std::string> Names(const std::string& text, const char* pattern) {
    const auto names = Matches(text, std::regex(pattern, std::regex::multiline));
    return {names.begin(), names.end()};
}

TEST(Exports, TheModuleExportsWhatTheDocumentLists) {
    const auto module = ProductBundle() / "Contents/Linux/KalmoFeatures.so";
    const auto nm = RunProgram({.program = "/usr/bin/nm",
                                .arguments = {"-DC", "--defined-only", "--format=posix", module}});
    // A class counts once, with its functions, its table and its type.
    const auto exported =
        Names(nm.output, R"(^(?:(?:vtable|typeinfo|typeinfo name) for )?((?:kalmo::)?\w+))");
    const auto document = ReadFile(std::filesystem::path(KALMO_SOURCE_DIR) / "docs/plug-in.md");
    EXPECT_FALSE(exported.empty());
    EXPECT_EQ(exported, Names(document.substr(document.find("## Exports")), "^\\| `([^`]+)`"));
}

}  // namespace
}  // namespace kalmo::test
