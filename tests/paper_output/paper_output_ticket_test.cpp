// The panel's record in the ticket, there and back.
#include "paper_output/paper_output_record.h"
#include "settings/ppd_choices.h"
#include "settings/ppd_file.h"
#include "support/dictionaries.h"

namespace kalmo::test {
namespace {

struct Job final {
    PPDRef ppd = nullptr;
    LooseTicket ticket;

    /// An item below "com.kalmo.print.".
    void set(const std::string& key, CFTypeRef value) const {
        PMTicketSetItem(ticket, nullptr, String("com.kalmo.print." + key), value, false);
    }
    bool holds(const std::string& key, CFTypeRef value) const {
        CFTypeRef item = nullptr;
        PMTicketGetItem(ticket, String("com.kalmo.print." + key), &item);
        return item && CFEqual(item, value);
    }
    void choose(const char* keyword, const char* choice) const {
        PPDSetCurrentChoice(ticket, String(keyword), String(choice));
    }
    std::string choice(const char* keyword) const {
        return TakeText(PPDCopyCurrentChoice(ticket, String(keyword)));
    }
    /// A panel that has just read the ticket.
    PaperOutputRecord read() const {
        PaperOutputRecord record;
        record.job.savedJobName = String("Document");
        ReadPaperOutput(&record, {.ppd = ppd, .settings = ticket, .pageFormat = ticket});
        return record;
    }
    void write(const PaperOutputRecord& record, SidesPopup popup = SidesPopup::exists) const {
        EXPECT_EQ(WritePaperOutput(record, ticket, popup), noErr);
    }
    /// What stands in the ticket beside the record: the layout switch and the orientation.
    void layOut() const {
        set("BookletLayout", kCFBooleanTrue);
        PMTicketSetSInt32(ticket, nullptr, CFSTR("com.apple.print.PageFormat.PMOrientation"), 2, 0);
    }
};

std::vector<SInt32> Numbers(auto... values) { return {values...}; }

std::vector<SInt32> Fields(const PaperOutputRecord& record) {
    const auto& [mode, outlines, newSize, gutter, creep] = record.booklet;
    const Finishing& f = record.finishing;
    return Numbers(record.separators.option, outlines, gutter, creep, record.duplex, f.option,
                   f.offset, f.offsetSubsetEnabled, f.offsetPagesPerSubset, f.slipSheet, f.bind,
                   mode, newSize, record.outputBin, f.fold, f.punch, f.singleStaple, f.dualStaple,
                   f.multipleStaple, record.job.jobType, record.job.mediaType,
                   record.job.saveDisposition, record.orientation);
}

TEST(PaperOutputTicket, EachKeyHasItsField) {
    const Job job, copy;
    EXPECT_EQ(Fields(job.read()),
              Numbers(1, 0, 24, 0, 0, 0, 1, 0, 1, 0, 0, 2, kUnset, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1));
    SInt32 number = 20;
    for (const char* key :
         {"BookletDrawOutlines", "Gutter", "Creep", "FinishingOptions", "FinishingOffset",
          "FinishingOffsetEnableSubset", "FinishingOffsetPagesPerSubset", "FinishingSlipSheet",
          "FinishingBindValue"})
        job.set(key, Value(std::to_string(++number)));
    job.layOut();
    job.set("BookletForceNewSize", kCFBooleanTrue);
    job.set("SeparatorOption", Value("3"));
    job.set("FinishingDuplex", Value("2"));
    job.set("JobLevelStock", Dictionary("Size=4"));
    job.set("JobType", Dictionary("JobType=3 MediaType=43 SaveDisposition=2"));
    for (const auto& [keyword, choice] : {std::pair{"OutputBin", "Side"},
                                          {"Duplex", "None"},
                                          {"KLFold", "Z"},
                                          {"KLPunch", "3HolePunch"},
                                          {"StapleLocation", "DualLandscape"}})
        job.choose(keyword, choice);
    const CFStringRef shared = CFSTR("com.apple.print.PrintSettings.PMDuplexing");
    PMTicketSetSInt32(job.ticket, nullptr, shared, 1, false);
    job.set("FinishingCustom", CFSTR("cut"));
    job.set("FaxOptions", Dictionary("Unknown=1"));
    const PaperOutputRecord record = job.read();
    EXPECT_EQ(CFStringToUTF8(record.finishing.custom), "cut");
    EXPECT_TRUE(job.holds("FaxOptions", record.faxOptions) && !record.faxRecipients);
    EXPECT_EQ(Fields(record), Numbers(3, 21, 22, 23, 2, 24, 25, 26, 27, 28, 0, 1, 4, 3, 20, 4, 1,
                                      10, 1, 3, 43, 2, 2));
    copy.layOut();
    copy.write(record);
    EXPECT_EQ(Fields(copy.read()), Fields(record));
    EXPECT_TRUE(copy.holds("FinishingBindValue", Value("0"))) << "is not read";
    EXPECT_EQ(copy.choice("Duplex"), "DuplexNoTumble");
    SInt32 duplexing = 0;
    PMTicketGetSInt32(copy.ticket, shared, &duplexing);
    EXPECT_EQ(duplexing, 2);
}

TEST(PaperOutputTicket, KeysThatDependOnAnotherAreWrittenWithIt) {
    const Job job;
    const char* const keys[] = {"Gutter", "FinishingDuplex", "FinishingOffsetPagesPerSubset"};
    for (const char* key : keys) job.set(key, Value("7"));
    PaperOutputRecord record = job.read();
    record.duplex = record.finishing.offsetPagesPerSubset = record.booklet.gutter = 2;
    job.write(record, SidesPopup::missing);
    for (const char* key : keys) EXPECT_TRUE(job.holds(key, Value("7"))) << key;
    EXPECT_EQ(job.choice("Duplex"), "DuplexNoTumble");
    for (const char* key : {"BookletLayout", "BookletForceNewSize"}) job.set(key, kCFBooleanTrue);
    record = job.read();
    record.booklet.newSize = kUnset;
    job.write(record);
    EXPECT_TRUE(job.holds("BookletForceNewSize", kCFBooleanFalse));
    EXPECT_EQ(job.read().jobStock.size(), kUnset) << "the booklet takes no size from the stock";
}

TEST(PaperOutputTicket, AJobsDictionaryHoldsWhatItsTypeNeeds) {
    const Job job;
    const std::string always = "JobType=1 MediaType=1 UseJobName=true DelayedPrintTime=0";
    job.write(job.read());
    EXPECT_TRUE(job.holds("JobType", Dictionary(always)));
    const auto held = Dictionary(
        "JobType=3 MediaType=2 UseJobName=false SavedJobName=a SavedJobLocation=b "
        "SecurePrintPassword=c DelayedPrintTime=1000000000000 SaveDisposition=2 Unknown=true");
    job.set("JobType", held);
    PaperOutputRecord record = job.read();
    job.write(job.read());
    EXPECT_TRUE(job.holds("JobType", held));
    record.job.setPasscode(nullptr);
    record.job.useJobName = record.job.useDefaultLocation = true;
    record.job.jobType = record.job.mediaType = 1;
    record.job.delayedPrintTime = 0;
    job.write(record);
    EXPECT_TRUE(job.holds("JobType", Dictionary(always + " Unknown=true")));
}

TEST(PaperOutputTicket, ThePrintersPaperWinsAndUnknownChoicesStay) {
    const PrinterWithPPD printer(PPDOption("MediaType", "Transparency", {"Transparency"}));
    const Job job{printer.ppd()};
    job.set("JobLevelStock", Dictionary("Type=10 Color=2"));
    EXPECT_EQ(job.read().jobStock.color(), kStockColorClear);
    for (const char* keyword : {"MediaColor", "MediaType", "StapleLocation"})
        job.choose(keyword, "Nonesuch");
    EXPECT_EQ(job.read().jobStock.type(), -1);
    EXPECT_EQ(job.read().jobStock.color(), -1);
    job.write(job.read());
    EXPECT_EQ(job.choice("MediaType"), "Nonesuch");
    EXPECT_EQ(job.choice("StapleLocation"), "None");
}

}  // namespace
}  // namespace kalmo::test
