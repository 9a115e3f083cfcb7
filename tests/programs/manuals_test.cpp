// Manuals and completions know every option of the programs, and no other.
#include <regex>
#include <set>

#include "support/programs.h"
#include "support/test.h"

namespace kalmo::test {
namespace {

/// What `pattern` captures in the part of a line that `line` captures, with "-" before it.
std::set<std::string> Options(const std::string& text, const char* line, const char* pattern) {
    std::set<std::string> found;
    const std::regex lines(line);
    const std::regex words(pattern);
    std::istringstream in(text);
    for (std::string one; std::getline(in, one);) {
        std::smatch start;
        if (!std::regex_search(one, start, lines)) continue;
        const std::string options = start[1];
        for (std::sregex_iterator word(options.begin(), options.end(), words), end; word != end;
             ++word) {
            found.insert("-" + (*word)[1].str());
        }
    }
    return found;
}

TEST(ManualsTest, ManualAndCompletionNameTheOptions) {
    const std::filesystem::path source = KALMO_SOURCE_DIR;
    for (const std::string program : {"kalmo-print", "kalmo-ticket"}) {
        const auto help = RunProgram({.program = BuiltProgram(program), .arguments = {"--help"}});
        const auto options = Options(help.output, R"(^ +(-[^ ]+))", R"(-(-?[a-z][a-z-]*))");
        ASSERT_GT(options.size(), 3u) << help.output << help.errors;
        const auto manual = ReadFile(source / "man" / (program + ".1"));
        EXPECT_EQ(Options(manual, R"(^\.It (Fl .*))", R"(Fl (-?[a-z][a-z-]*))"), options);
        const auto completion = ReadFile(source / "completions" / program);
        EXPECT_EQ(
            Options(completion, R"(^(?:.*-W '| {12})(-[^']*))", R"((?:^| )-(-?[a-z][a-z-]*))"),
            options);
        for (const auto& choice :
             Options(help.output, R"(^ +-[^ ]+ ([^ ]+\|[^ ]+))", "([a-z-]+)")) {
            EXPECT_TRUE(Contains(manual, choice.substr(1))) << choice;
            EXPECT_TRUE(Contains(completion, choice.substr(1))) << choice;
        }
    }
}

TEST(CompletionTest, NamesOfPresetsAreQuotedAsTheUserBegan) {
    const auto config = MakeFolder("config"), presets = config / "kalmo-print/presets";
    std::filesystem::create_directories(presets);
    for (const char* name : {"Two sided", "Two $(id)", "Two's"})
        WriteFile(presets / (std::string(name) + ".plist"), "");
    const std::pair<const char*, const char*> rows[] = {
        {"Two", "Two\\ \\$\\(id\\)\nTwo\\ sided\nTwo\\'s\n"},
        {"Two\\ s", "Two\\ sided\n"},
        {"\"Two", "Two \\$(id)\nTwo sided\nTwo's\n"},
        {"'Two", "Two $(id)\nTwo sided\nTwo'\\''s\n"},
    };
    for (const auto& [typed, offered] : rows) {
        const auto end = RunProgram(
            {.program = "/bin/bash",
             .arguments = {"-c",
                           "source $0; cur=$1; _kalmo_print_lines < <(_kalmo_print_presets)"
                           " && printf '%s\\n' \"${COMPREPLY[@]}\"",
                           std::filesystem::path(KALMO_SOURCE_DIR) / "completions/kalmo-print",
                           typed},
             .environment = {{"XDG_CONFIG_HOME", config}}});
        EXPECT_EQ(end.output, offered) << end.errors;
    }
}

}  // namespace
}  // namespace kalmo::test
