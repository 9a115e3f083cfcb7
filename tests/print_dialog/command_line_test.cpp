#include "print_dialog/command_line.h"

#include <gtest/gtest.h>

namespace kalmo {
namespace {

std::variant<CommandLine, ExitCode> Parse(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "kalmo-print");
    return ParseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

TEST(CommandLineTest, TakesEveryOption) {
    const auto parsed = Parse({"-d", "office", "-t", "Annual report", "--ticket", "a.plist",
                               "--write-ticket", "-", "--output", "out", "--no-dialog", "--phase",
                               "initialize", "--panels", "special-pages,job-notes", "report.pdf"});
    const auto& line = std::get<CommandLine>(parsed);
    EXPECT_EQ(line.printer, "office");
    EXPECT_EQ(line.title, "Annual report");
    EXPECT_EQ(line.ticket, "a.plist");
    EXPECT_EQ(line.writeTicket, "-");
    EXPECT_EQ(line.output, "out");
    EXPECT_TRUE(line.noDialog);
    EXPECT_EQ(line.phase, Phase::initialize);
    EXPECT_EQ(line.panels, (std::vector<std::string>{"special-pages", "job-notes"}));
    EXPECT_EQ(line.document, "report.pdf");
}

TEST(CommandLineTest, NamesTheJobAfterTitleOrDocument) {
    struct Row {
        const char* why;
        std::vector<const char*> arguments;
        const char* expected;
    };
    for (const auto& [why, arguments, expected] : std::vector<Row>{
             {"the title wins", {"-t", "Report", "/tmp/x.pdf"}, "Report"},
             {"the file's name, not its folder", {"/tmp/x y.pdf"}, "x y.pdf"},
             {"standard input has no name", {"-"}, ""},
             {"a title names it", {"-t", "Report", "-"}, "Report"},
             {"no document, no name", {}, ""},
         }) {
        SCOPED_TRACE(why);
        EXPECT_EQ(std::get<CommandLine>(Parse(arguments)).jobName(), expected);
    }
}

TEST(CommandLineTest, RefusesWhatItDoesNotUnderstandInOneLine) {
    struct Row {
        const char* why;
        std::vector<const char*> arguments;
    };
    for (const auto& [why, arguments] : std::vector<Row>{
             {"unknown option", {"--frobnicate"}},
             {"unknown panel", {"--panels", "special-pages,colour"}},
             {"unknown phase", {"--no-dialog", "--phase", "close"}},
             {"a phase is for runs without a window", {"--phase", "open"}},
             {"two printers", {"-d", "office", "--ppd", "x.ppd"}},
             {"two documents", {"a.pdf", "b.pdf"}},
             {"a first frame without a window", {"--no-dialog", "--print-first-frame"}},
             {"an empty queue name", {"-d", ""}},
         }) {
        SCOPED_TRACE(why);
        testing::internal::CaptureStderr();
        const auto parsed = Parse(arguments);
        const auto message = testing::internal::GetCapturedStderr();
        ASSERT_TRUE(std::holds_alternative<ExitCode>(parsed));
        EXPECT_EQ(std::get<ExitCode>(parsed), kExitUsage);
        EXPECT_TRUE(message.starts_with("kalmo-print: ")) << message;
        EXPECT_EQ(message.find('\n'), message.size() - 1) << message;
    }
}

}  // namespace
}  // namespace kalmo
