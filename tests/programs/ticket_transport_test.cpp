// From the submitted job to the printer's filter, through a real CUPS server and its filters.
#include "job_ticket/attachment.h"
#include "programs/private_cupsd.h"

namespace kalmo::test {
namespace {

using std::filesystem::path;

constexpr char kPasscode[] = "9274610358";

std::string NastiestTicket() {
    std::string ticket =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<plist version=\"1.0\"><dict>"
        "<key>{x}</key><string>{hello \"quoted\" 'it' \\ a\r\nb &lt;\xF0\x9F\x96\xA8&gt;</string>"
        "<key>int64</key><integer>9007199254740993</integer><key>no</key><false/>"
        "<key>passcode</key><string>";
    ticket += std::string(kPasscode) + "</string><key>recipients</key><array>";
    for (int i = 0; i < 1000; ++i)
        ticket += "<dict><key>name</key><string>J\xC3\xBCrgen " + std::to_string(i) +
                  "</string><key>fax</key><string>+49 (0) 30 #" + std::to_string(i) +
                  "*</string></dict>\n";
    return ticket + "</array></dict></plist>\n";
}

struct TicketTransport : QueueTest {
    void SetUp() override {
        QueueTest::SetUp();
        const auto attached = job_ticket::AttachTicket(document, ticket, sent);
        ASSERT_TRUE(attached) << attached.error;
    }

    [[nodiscard]] JobOptions withDigest(JobOptions options) const {
        options[job_ticket::kDigestOption] = job_ticket::TicketDigest(ticket);
        return options;
    }

    const path printed = out / "kalmo.prn";
    const path sent = document.parent_path() / "sent.pdf";
    const std::string ticket = NastiestTicket();
};

TEST_F(TicketTransport, TicketArrivesExactAndNobodyElseReadsThePasscode) {
    const int job = server.submit("kalmo", sent, withDigest({{"number-up", "2"}}));
    ASSERT_NE(job, 0) << cupsLastErrorString();
    const FinishedJob finished = server.finished(job);
    ASSERT_EQ(finished.state, IPP_JSTATE_COMPLETED) << finished.message << server.log();
    EXPECT_TRUE(ReadFile(out / "ticket") == ticket);
    EXPECT_FALSE(Contains(ReadFile(printed), kPasscode));
    const ProgramEnd info = RunProgram({.program = "/usr/bin/pdfinfo", .arguments = {printed}});
    EXPECT_TRUE(Contains(info.output, "Pages:           2")) << info.output << info.errors;

    EXPECT_EQ(server.leaks(job, kPasscode), "");
}

TEST_F(TicketTransport, OnlyAJobWithItsOwnTicketIsPrinted) {
    const path changed = document.parent_path() / "changed.pdf";
    ASSERT_TRUE(job_ticket::AttachTicket(document, ticket + " ", changed));
    const std::tuple<const char*, path, JobOptions, ipp_jstate_t> rows[] = {
        {"attachment missing", document, withDigest({}), IPP_JSTATE_STOPPED},
        {"attachment changed", changed, withDigest({}), IPP_JSTATE_STOPPED},
        {"foreign attachment, no option", changed, {}, IPP_JSTATE_COMPLETED},
        {"banner page before", sent, withDigest({{"job-sheets", "standard,none"}}),
         IPP_JSTATE_COMPLETED},
    };
    for (const auto& [why, file, options, state] : rows) {
        SCOPED_TRACE(why);
        remove(printed);
        const FinishedJob finished = server.finished(server.submit("kalmo", file, options));
        EXPECT_EQ(finished.state, state) << finished.message << server.log();
        EXPECT_FALSE(Contains(finished.message + server.log(), kPasscode));
        EXPECT_EQ(Contains(ReadFile(printed), "%PDF-"), state == IPP_JSTATE_COMPLETED);
        EXPECT_EQ(exists(out / "ticket"), options.contains("job-sheets"));
    }
}

}  // namespace
}  // namespace kalmo::test
