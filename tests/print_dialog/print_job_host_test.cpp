#include "print_dialog/print_job_host.h"

#include "job_ticket/attachment.h"
#include "print_dialog/hosted_pane.h"
#include "print_dialog/job.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "support/dictionaries.h"
#include "support/ticket_files.h"

namespace kalmo::test {
namespace {

/// Each Sync towards the ticket leaves this behind.
const char* const kSyncMark = "com.kalmo.print.ControllerInformation.ControllerFamily";

struct PrintJobHostTest : testing::Test {
    PMTicketRef ticket() { return pane_.host.printSettings(); }
    bool takeSyncMark() { return PMTicketReleaseItem(ticket(), String(kSyncMark)) == noErr; }
    SInt32 stockSize() {
        return SInt32InDictionary(DictionaryInTicket(ticket(), kJobLevelStockKey), CFSTR("Size"))
            .value_or(-1);
    }

    HostedPane pane_;
};

TEST_F(PrintJobHostTest, AnotherPrinterKeepsWhatItKnows) {
    pane_.choose(SamplePPD("kalmo-office-color"));
    ASSERT_TRUE(pane_.host.readTicket(TicketFile("<key>com.kalmo.print.X</key><integer>3</integer>",
                                                 "KLMColor=BW KLEconomode=Draft PageSize=A3")));
    EXPECT_FALSE(pane_.host.setPrinter({"broken", "/dev/null"})) << "and nothing changes";
    EXPECT_EQ(pane_.host.printer().name, "kalmo-office-color");
    pane_.choose(SamplePPD("kalmo-office-mono"));
    EXPECT_EQ(pane_.host.ppdChoice("KLMColor"), "") << "this one prints in black only";
    EXPECT_EQ(pane_.host.ppdChoice("KLEconomode"), "Draft");
    EXPECT_EQ(pane_.host.ppdChoice("PageSize"), "A3");
    EXPECT_TRUE(PMTicketContainsItem(ticket(), CFSTR("com.kalmo.print.X")));
}

TEST_F(PrintJobHostTest, SyncsAroundWhatAPanelReadsAndOnlyThen) {
    ASSERT_EQ(pane_.beginOn(), noErr);
    EXPECT_FALSE(takeSyncMark()) << "to begin is not to sync towards the ticket";
    pane_.host.apply(pane_.host.settings());
    EXPECT_TRUE(takeSyncMark()) << "the paper that the dialog shows is news to the job's stock";
    const std::tuple<const char*, void (*)(JobSettings&), bool> rows[] = {
        {"copies", [](JobSettings& s) { s.copies = 3; }, false},
        {"source", [](JobSettings& s) { s.inputSlot = "Tray2"; }, false},
        {"color", [](JobSettings& s) { s.colorOption = "KLMColor", s.colorChoice = "BW"; }, true},
        {"paper", [](JobSettings& s) { s.paper = "A3"; }, true},
        {"orientation", [](JobSettings& s) { s.orientation = Orientation::landscape; }, true},
        {"two on a sheet", [](JobSettings& s) { s.pagesPerSheet = 2; }, true},
        {"one on a sheet", [](JobSettings& s) { s.pagesPerSheet = 1; }, true},
    };
    auto settings = pane_.host.settings();
    for (const auto& [why, change, framed] : rows) {
        SCOPED_TRACE(why);
        change(settings);
        pane_.host.apply(settings);
        EXPECT_EQ(takeSyncMark(), framed);
        const auto shared = CFSTR("com.apple.print.PrintSettings.PMLayoutNUp");
        EXPECT_EQ(PMTicketContainsItem(ticket(), shared), settings.pagesPerSheet > 1);
    }
    EXPECT_EQ(pane_.host.ppdChoice("PageSize"), "A3");
    EXPECT_EQ(pane_.host.ppdChoice("InputSlot"), "Tray2");
    EXPECT_EQ(pane_.host.ppdChoice("KLMColor"), "BW");
    EXPECT_EQ(pane_.host.ppdChoice("KLColorMode"), "Grayscale") << "the printer's own word for it";
}

TEST_F(PrintJobHostTest, TheDialogsPaperReachesTheStock) {
    pane_.choose(SamplePPD("kalmo-office-color"));
    const auto stock = TicketFile(
        "<key>com.kalmo.print.JobLevelStock</key><dict><key>Size</key><integer>1</integer>"
        "<key>Type</key><integer>12</integer></dict>",
        "PageSize=A4");
    ASSERT_TRUE(pane_.host.readTicket(stock));
    EXPECT_EQ(pane_.host.settings().paper, "A4");
    ASSERT_EQ(pane_.begin(), noErr);
    pane_.host.apply(pane_.host.settings());
    EXPECT_EQ(stockSize(), 4) << "the dialog says A4, whatever the stock said";
    auto settings = pane_.host.settings();
    settings.paper = "A3";
    pane_.host.apply(settings);
    EXPECT_EQ(stockSize(), 5);
    settings.paper = "NoSuchPaper";
    pane_.host.apply(settings);
    EXPECT_EQ(stockSize(), 5) << "a stock has no number for it";
}

struct JobTest : PrintJobHostTest {
    /// What these settings, on top of the pane's own, send to a queue.
    JobOrder order(const std::function<void(JobSettings&)>& change) {
        auto settings = pane_.host.settings();
        change(settings);
        pane_.host.apply(settings);
        JobOrder order;
        const SheetLayout layout(pane_.host.paper(), settings, {{595, 842}});
        const auto outcome =
            MakeJobOrder(pane_.host, {.layout = layout, .queue = "office"}, &order);
        EXPECT_TRUE(outcome) << outcome.error;
        return order;
    }
    static std::map<std::string, std::string> options(const JobOrder& order) {
        return {order.options.begin(), order.options.end()};
    }
};

TEST_F(JobTest, ChoicesAndSettingsBecomeOptions) {
    pane_.choose(SamplePPD("kalmo-office-color"));
    ASSERT_TRUE(
        pane_.host.readTicket(TicketFile(JobTypeEntry(1, TextEntry("SecurePrintPassword", "24680")),
                                         "KLEconomode=Draft copies=99 raw=true")));
    ASSERT_EQ(pane_.begin(), noErr);
    const auto made = order([](JobSettings& settings) {
        settings.copies = 3, settings.collate = false;
        settings.pages = {{1, 3}, {5, 5}};
        settings.paper = "A3", settings.pagesPerSheet = 4;
        settings.orientation = Orientation::landscape;
    });
    auto sent = options(made);
    EXPECT_EQ(sent["KLEconomode"], "Draft");
    EXPECT_EQ(sent["PageSize"], "A3");
    EXPECT_EQ(sent["copies"], "3") << "not the ticket's word: it is no option of the printer";
    EXPECT_EQ(sent["multiple-document-handling"], "separate-documents-uncollated-copies");
    EXPECT_FALSE(sent.contains("page-ranges")) << "the server would count sheets";
    EXPECT_EQ(made.pages, (std::vector<PageRange>{{1, 3}, {5, 5}}));
    EXPECT_EQ(sent["number-up"], "4");
    EXPECT_EQ(sent["orientation-requested"], "4");
    EXPECT_FALSE(sent.contains("raw"));
    EXPECT_EQ(sent[job_ticket::kDigestOption], job_ticket::TicketDigest(made.ticket));
    EXPECT_TRUE(made.secret);
    for (const auto& [name, value] : made.options) EXPECT_FALSE(Contains(value, "24680")) << name;
}

TEST_F(JobTest, AFaxIsBlackAndConfidentialAndTheNextJobHasItsColorAgain) {
    const auto inColor = [](JobSettings& settings) {
        settings.colorOption = "KLMColor", settings.colorChoice = "Color";
    };
    ASSERT_EQ(pane_.beginOn(), noErr);
    for (const std::string& details :
         {"<key>com.kalmo.print.FaxRecipientList</key><array><dict>" + TextEntry("FaxNumber", "1") +
              "</dict></array>",
          DictionaryEntry("com.kalmo.print.FaxOptions", TextEntry("CreditCard", "12"))}) {
        SCOPED_TRACE(details);
        ASSERT_TRUE(pane_.host.readTicket(TicketFile(JobTypeEntry(5) + details)));
        EXPECT_TRUE(order(inColor).secret);
        pane_.host.sync(kSyncToTicket);
        EXPECT_EQ(pane_.host.ppdChoice("KLMColor"), "BW");
    }
    PMTicketSetCFDictionary(ticket(), kTicketCreator, kJobTypeKey, Dictionary("JobType=1"), false);
    pane_.host.sync(kSyncToUI);
    pane_.host.sync(kSyncToTicket);
    EXPECT_EQ(pane_.host.ppdChoice("KLMColor"), "Color");
}

TEST_F(JobTest, PlainJobsSayLittle) {
    ASSERT_EQ(pane_.beginOn(), noErr);
    const auto made = order([](JobSettings& settings) { settings.pages = {{2, 3}}; });
    auto sent = options(made);
    for (const char* absent : {"copies", "multiple-document-handling", "number-up", "pdfAutoRotate",
                               "orientation-requested", "media"}) {
        EXPECT_FALSE(sent.contains(absent)) << absent;
    }
    EXPECT_EQ(sent["page-ranges"], "2-3");
    EXPECT_TRUE(made.pages.empty());
    EXPECT_FALSE(made.secret);
}

}  // namespace
}  // namespace kalmo::test
