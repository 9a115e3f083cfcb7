// kalmo-print and its workers against a real CUPS server.
#include "programs/private_cupsd.h"
#include "support/ticket_files.h"

namespace kalmo::test {
namespace {

namespace fs = std::filesystem;

constexpr char kPasscode[] = "8264019375";

/// What the printer is told beside the ticket; the panels have a control for all but the first.
constexpr std::pair<const char*, const char*> kChoices[] = {
    {"KLEconomode", "Draft"},  {"Duplex", "DuplexTumble"},   {"MediaType", "Recycled"},
    {"MediaColor", "Blue"},    {"OutputBin", "Finisher"},    {"StapleLocation", "DualLandscape"},
    {"KLPunch", "2HolePunch"}, {"KLFold", "ZFoldHalfSheet"},
};

struct KalmoPrintQueueTest : QueueTest {
    ProgramEnd print(const fs::path& ticket, std::vector<std::string> more = {}) {
        more.insert(more.end(), {"--no-dialog", "-d", "kalmo", "--ticket", ticket, document});
        return RunProgram({.program = BuiltProgram("kalmo-print"), .arguments = more});
    }
    fs::path ticketOf(const std::string& settings, const std::string& choices) {
        WriteFile(ticket_, TicketFile(settings, choices));
        fs::permissions(ticket_, fs::perms(0600));
        return ticket_;
    }
    /// A ticket of secure print with kChoices.
    fs::path securePrint(const std::string& passcode) {
        std::string choices;
        for (const auto& [keyword, choice] : kChoices)
            choices += std::string(keyword) + "=" + choice + " ";
        return ticketOf(JobTypeEntry(6, TextEntry("SecurePrintPassword", passcode)), choices);
    }
    /// A fax in color, as far as that goes.
    fs::path fax(const std::string& recipients) {
        return ticketOf(JobTypeEntry(5) +
                            DictionaryEntry("com.kalmo.print.FaxOptions",
                                            TextEntry("DialingPrefix", "8#*7") +
                                                "<key>Resolution</key><integer>3</integer>") +
                            "<key>com.kalmo.print.FaxRecipientList</key><array>" + recipients +
                            "</array>",
                        "KLMColor=Color");
    }

    fs::path ticket_ = document.parent_path() / "in.plist";
};

TEST_F(KalmoPrintQueueTest, SecurePrintArrivesAtTheFilterBehindABannerPage) {
    const auto refused = print(securePrint(""));
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(Contains(refused.errors, "passcode of 4 to 10 digits")) << refused.errors;
    EXPECT_EQ(refused.errors.find('\n'), refused.errors.size() - 1) << "one line";
    const auto conflicting = print(securePrint(kPasscode));
    EXPECT_EQ(conflicting.exitCode, 1);
    EXPECT_EQ(conflicting.errors,
              "kalmo-print: “Fold: Z fold, half sheet” does not go with “Paper size: A4”\n"
              "kalmo-print: Set “Fold” to “No fold”\n"
              "kalmo-print: Nothing was printed; change the settings, or print with "
              "--print-anyway\n");
    EXPECT_TRUE(JobsOnTheServer().empty());
    // A page before the job's, of which the printer's filter hears too.
    RunProgram({.program = "/usr/sbin/lpadmin",
                .arguments = {"-p", "kalmo", "-o", "job-sheets-default=standard,none"}});
    const auto written = document.parent_path() / "out.plist";
    const auto end = print(securePrint(kPasscode), {"--print-anyway", "--write-ticket", written,
                                                    "--title", "Secret report"});
    ASSERT_EQ(end.exitCode, 0) << end.errors;
    ASSERT_EQ(JobsOnTheServer(), std::vector{1});
    ASSERT_TRUE(server.printed(1));
    const WrittenTicket arrived(ReadFile(out / "ticket"));
    const auto* type = arrived.value("PrintSettings", "com.kalmo.print.JobType");
    EXPECT_TRUE(CFEqual(
        type, WrittenTicket(ReadFile(written)).value("PrintSettings", "com.kalmo.print.JobType")));
    const auto told = server.attributes(1, "bob");
    for (const auto& [keyword, choice] : kChoices) {
        EXPECT_EQ(arrived.text("PPDChoices", keyword), choice);
        EXPECT_TRUE(Contains(told, std::string(keyword) + "=" + choice + "\n")) << told;
    }
}

TEST_F(KalmoPrintQueueTest, AFaxArrivesBlackWithWhatItsDialingNeeds) {
    const auto refused = print(fax(""));
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(
        refused.errors,
        "The fax has no recipients: Choose them in the Print dialog, at the job type, or list "
        "them in the ticket under com.kalmo.print.FaxRecipientList.\n");
    EXPECT_TRUE(JobsOnTheServer().empty());
    const auto known =
        TextEntry("FirstName", "Quendolyn") + TextEntry("FaxNumber", "+49 5559 176246");
    const auto end = print(fax("<dict>" + known + TextEntry("Future", "kept not") + "</dict>"));
    ASSERT_EQ(end.exitCode, 0) << end.errors;
    ASSERT_TRUE(server.printed(1));
    const WrittenTicket arrived(ReadFile(out / "ticket"));
    const WrittenTicket sent(ReadFile(ticket_));
    EXPECT_TRUE(CFEqual(arrived.value("PrintSettings", "com.kalmo.print.FaxOptions"),
                        sent.value("PrintSettings", "com.kalmo.print.FaxOptions")));
    EXPECT_TRUE(CFEqual(arrived.value("PrintSettings", "com.kalmo.print.FaxRecipientList"),
                        ReadPlist(Plist("<array><dict>" + known + "</dict></array>"))));
    EXPECT_EQ(arrived.text("PPDChoices", "KLMColor"), "BW");
    EXPECT_TRUE(Contains(server.attributes(1, "bob"), "KLMColor=BW\n"));
}

}  // namespace
}  // namespace kalmo::test
