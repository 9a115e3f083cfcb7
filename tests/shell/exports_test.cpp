// What the plug-in exports is what its documentation lists.
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <regex>
#include <set>
#include <string>

#include "support/bundles.h"
#include "support/private_home.h"

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

std::set<std::string> FirstGroups(const std::string& text, const char* pattern) {
    std::set<std::string> found;
    const std::regex expression(pattern);
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end;
         ++match)
        found.insert((*match)[1]);
    return found;
}

TEST(Exports, TheModuleExportsWhatTheDocumentLists) {
    const auto module = ProductBundle() / "Contents/Linux/KalmoFeatures.so";
    const auto exported =
        FirstGroups(OutputOf("nm -D --defined-only --format=posix '" + module.string() + "'"),
                    R"((?:^|\n)(\S+) )");
    const auto documented =
        FirstGroups(ReadFile(std::filesystem::path(KALMO_SOURCE_DIR) / "docs/plug-in.md"),
                    R"(\n\| `([A-Za-z]+)` \|)");
    EXPECT_FALSE(exported.empty());
    EXPECT_EQ(exported, documented);
}

}  // namespace
}  // namespace kalmo::test
