// What people say from outside: command lines, page ranges, signals.
#include "print_dialog/command_line.h"

#include <csignal>

#include "print_dialog/job_settings.h"
#include "print_dialog/stop_signals.h"
#include "support/qt_test.h"

namespace kalmo::test {
namespace {

std::variant<CommandLine, ExitCode> Parse(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "kalmo-print");
    return ParseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

TEST(CommandLines, AListOfPanelsLeavesTheDocumentAlone) {
    const auto parsed = Parse({"--panels", "special-pages,job-notes", "report.pdf", "-reverse"});
    const auto& line = std::get<CommandLine>(parsed);
    EXPECT_EQ(line.panels, (std::vector<std::string>{"special-pages", "job-notes"}));
    EXPECT_EQ(line.document, "report.pdf");
    EXPECT_EQ(line.phase, Phase::open);
}

TEST(CommandLines, RefusesWhatItDoesNotUnderstandInOneLine) {
    for (const auto& [why, arguments] :
         std::vector<std::pair<const char*, std::vector<const char*>>>{
             {"unknown option", {"--frobnicate"}},
             {"what would steer a terminal", {"--panels", "a\u009b31m\u202eb"}},
             {"a phase is for runs without a window", {"--phase", "open"}},
             {"two printers", {"-d", "office", "--ppd", "x.ppd"}},
             {"two documents", {"a.pdf", "b.pdf"}},
             {"a first frame without a window", {"--no-dialog", "--print-first-frame"}},
             {"a dry run writes no file", {"--dry-run", "--write-ticket", "-"}},
         }) {
        SCOPED_TRACE(why);
        testing::internal::CaptureStderr();
        const auto parsed = Parse(arguments);
        const auto message = testing::internal::GetCapturedStderr();
        ASSERT_TRUE(std::holds_alternative<ExitCode>(parsed));
        EXPECT_EQ(std::get<ExitCode>(parsed), kExitUsage);
        EXPECT_TRUE(message.starts_with("kalmo-print: ")) << message;
        EXPECT_EQ(message.find('\n'), message.size() - 1) << message;
        EXPECT_FALSE(Contains(message, "\u009b") || Contains(message, "\u202e")) << message;
    }
}

TEST(PageRanges, TextBecomesSortedMergedRangesOrNothing) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"blanks and dashes as people write them", " 1 - 3 , 5 ", "1-3,5"},
        {"out of order, touching and overlapping", "7,2-3,4-5,3", "2-5,7"},
        {"empty", "", nullptr},
        {"nothing between commas", "1,,3", nullptr},
        {"page 0", "0-2", nullptr},
        {"behind the end", "11-13", nullptr},
        {"backwards", "5-3", nullptr},
        {"larger than any number", "99999999999999999999", nullptr},
    };
    for (const auto& [why, text, expected] : rows) {
        SCOPED_TRACE(why);
        const auto ranges = ParsePageRanges(text, 12);
        ASSERT_EQ(ranges.has_value(), expected != nullptr);
        EXPECT_EQ(PageRangesText(ranges.value_or(std::vector<PageRange>())),
                  expected ? expected : "");
    }
}

TEST(StopSignals, ASignalStopsTheJobAndNotTheProgram) {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE(number);
        QEventLoop loop;
        int stops = 0;
        {
            const StopSignals signals([&] { ++stops, loop.quit(); });
            QTimer::singleShot(5000, &loop, &QEventLoop::quit);
            std::raise(number);
            std::raise(number);  // an impatient user
            EXPECT_EQ(stops, 0) << "told by the event loop, not by the signal handler";
            loop.exec();
        }
        EXPECT_EQ(stops, 1);
        EXPECT_EQ(std::signal(number, SIG_DFL), SIG_DFL) << "afterwards signals end the program";
    }
}

}  // namespace
}  // namespace kalmo::test
