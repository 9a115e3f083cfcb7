#include "print_dialog/command_line.h"

#include <gtest/gtest.h>

namespace kalmo {
namespace {

std::variant<CommandLine, ExitCode> Parse(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "kalmo-print");
    return ParseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

TEST(CommandLineTest, AListOfPanelsLeavesTheDocumentAlone) {
    const auto parsed = Parse({"--panels", "special-pages,job-notes", "report.pdf"});
    const auto& line = std::get<CommandLine>(parsed);
    EXPECT_EQ(line.panels, (std::vector<std::string>{"special-pages", "job-notes"}));
    EXPECT_EQ(line.document, "report.pdf");
    EXPECT_EQ(line.phase, Phase::open);
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
