#include "print_dialog/print_job_host.h"

#include <gtest/gtest.h>

#include "print_dialog/hosted_pane.h"
#include "printing/ticket.h"

namespace kalmo {
namespace {

using test::HostedPane;
using test::TicketFile;

/// Each Sync towards the ticket leaves this behind.
const char* const kSyncMark = "com.kalmo.print.ControllerInformation.ControllerFamily";

class PrintJobHostTest : public testing::Test {
protected:
    PMTicketRef ticket() { return pane_.host.printSettings(); }
    bool takeSyncMark() { return PMTicketReleaseItem(ticket(), test::String(kSyncMark)) == noErr; }
    SInt32 stockSize() {
        CFDictionaryRef stock = nullptr;
        SInt32 size = -1;
        PMTicketGetCFDictionary(ticket(), CFSTR("com.kalmo.print.JobLevelStock"), &stock);
        CFNumberGetValue(static_cast<CFNumberRef>(CFDictionaryGetValue(stock, CFSTR("Size"))),
                         kCFNumberSInt32Type, &size);
        return size;
    }

    HostedPane pane_;
};

TEST_F(PrintJobHostTest, GivesEverythingBack) {
    const auto live = [] {
        HostedPane pane;
        pane.beginOnSample();
        pane.host.open();
        pane.host.sync(kSyncToTicket);
    };
    live();  // constants come to stay
    const auto before = CFLiveValueCount();
    live();
    EXPECT_EQ(CFLiveValueCount(), before);
}

TEST_F(PrintJobHostTest, AnotherPrinterKeepsWhatItKnows) {
    pane_.choose(test::SamplePPD("kalmo-office-color"));
    ASSERT_TRUE(pane_.host.readTicket(
        TicketFile("<key>com.kalmo.print.X</key><integer>3</integer>",
                   "<key>KLMColor</key><string>BW</string><key>KLEconomode</key>"
                   "<string>Draft</string><key>PageSize</key><string>A3</string>")));
    EXPECT_FALSE(pane_.host.setPrinter({"broken", "/dev/null"})) << "and nothing changes";
    EXPECT_EQ(pane_.host.printer().name, "kalmo-office-color");
    pane_.choose(test::SamplePPD("kalmo-office-mono"));
    EXPECT_EQ(pane_.host.ppdChoice("KLMColor"), "") << "this one prints in black only";
    EXPECT_EQ(pane_.host.ppdChoice("KLEconomode"), "Draft");
    EXPECT_EQ(pane_.host.ppdChoice("PageSize"), "A3");
    EXPECT_TRUE(PMTicketContainsItem(ticket(), CFSTR("com.kalmo.print.X")));
}

TEST_F(PrintJobHostTest, SyncsAroundWhatAPanelReadsAndOnlyThen) {
    ASSERT_EQ(pane_.beginOnSample(), noErr);
    EXPECT_FALSE(takeSyncMark()) << "to begin is not to sync towards the ticket";
    pane_.host.apply(pane_.host.settings());
    EXPECT_TRUE(takeSyncMark()) << "the paper that the dialog shows is news to the job's stock";
    struct Row {
        const char* why;
        void (*change)(JobSettings&);
        bool framed;
    };
    const Row rows[] = {
        {"nothing", [](JobSettings&) {}, false},
        {"copies", [](JobSettings& s) { s.copies = 3; }, false},
        {"source", [](JobSettings& s) { s.inputSlot = "Tray2"; }, false},
        {"color", [](JobSettings& s) { s.colorOption = "KLMColor", s.colorChoice = "BW"; }, true},
        {"paper", [](JobSettings& s) { s.paper = "A3"; }, true},
        {"orientation", [](JobSettings& s) { s.orientation = Orientation::landscape; }, true},
        {"two on a sheet", [](JobSettings& s) { s.pagesPerSheet = 2; }, true},
        {"four on a sheet", [](JobSettings& s) { s.pagesPerSheet = 4; }, false},
        {"one on a sheet", [](JobSettings& s) { s.pagesPerSheet = 1; }, true},
    };
    auto settings = pane_.host.settings();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        row.change(settings);
        pane_.host.apply(settings);
        EXPECT_EQ(takeSyncMark(), row.framed);
        const auto shared = CFSTR("com.apple.print.PrintSettings.PMLayoutNUp");
        EXPECT_EQ(PMTicketContainsItem(ticket(), shared), settings.pagesPerSheet > 1);
    }
    EXPECT_EQ(pane_.host.ppdChoice("PageSize"), "A3");
    EXPECT_EQ(pane_.host.ppdChoice("InputSlot"), "Tray2");
    EXPECT_EQ(pane_.host.ppdChoice("KLMColor"), "BW");
    EXPECT_EQ(pane_.host.ppdChoice("KLColorMode"), "Grayscale") << "the printer's own word for it";
}

TEST_F(PrintJobHostTest, TheDialogsPaperReachesTheStock) {
    pane_.choose(test::SamplePPD("kalmo-office-color"));
    const auto stock = TicketFile(
        "<key>com.kalmo.print.JobLevelStock</key><dict><key>Size</key><integer>1</integer>"
        "<key>Type</key><integer>12</integer></dict>",
        "<key>PageSize</key><string>A4</string>");
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

TEST_F(PrintJobHostTest, FurtherPanelsAreOfferedForOneLifeOnly) {
    const auto bundle = Owned<CFBundleRef>::Adopt(OpenExtensionBundle());
    auto** names =
        static_cast<CFStringRef*>(CFBundleGetDataPointerForName(bundle, CFSTR("PanelInterfaces")));
    ASSERT_TRUE(names);
    {
        HostedPane pane({"special-pages", "job-notes", "special-pages"});
        pane.beginOnSample();
        EXPECT_TRUE(CFEqual(names[4], CFSTR("_GetSpecialPagesPanelInterface")));
        EXPECT_TRUE(CFEqual(names[5], CFSTR("GetJobNotesPanelInterface")));
        EXPECT_EQ(names[6], nullptr) << "a name given twice is one panel";
    }
    EXPECT_EQ(names[4], nullptr);
    EXPECT_EQ(names[5], nullptr);
    EXPECT_EQ(PanelInterfaceName("colour"), nullptr);
}

}  // namespace
}  // namespace kalmo
