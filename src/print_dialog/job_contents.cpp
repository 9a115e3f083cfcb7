#include "print_dialog/job_contents.h"

#include <algorithm>

#include "printing/ticket.h"
#include "settings/dictionary.h"
#include "settings/ppd_choices.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "system/clock.h"

#define kSpecialPages "com.kalmo.print.SpecialPages."

namespace kalmo {
namespace {

constexpr int kMostSheetsOfInsert = 999;
constexpr int kMostLightness = 5;
constexpr int kWatermarkOnPage1 = 5;
constexpr int kSaveAndPrint = 2;

std::optional<PrintedSides> SidesOf(std::optional<SInt32> number) {
    if (!number || *number < 1 || *number > 3) return std::nullopt;
    return static_cast<PrintedSides>(*number);
}

std::optional<SInt32> NumberInTicket(PMTicketRef ticket, CFStringRef key) {
    SInt32 number = 0;
    return PMTicketGetSInt32(ticket, key, &number) == noErr ? std::optional(number) : std::nullopt;
}

bool HasText(PMTicketRef ticket, CFStringRef key) {
    CFStringRef text = nullptr;
    return PMTicketGetCFString(ticket, key, &text) == noErr && CFStringGetLength(text) > 0;
}

SInt64 Time(CFDictionaryRef dictionary, CFStringRef key) {
    SInt64 time = 0;
    return CFDictionaryGetNumber(dictionary, key, kCFNumberSInt64Type, &time) && time > 0 ? time
                                                                                          : 0;
}

bool Flag(CFDictionaryRef dictionary, CFStringRef key, bool missing) {
    const CFBooleanRef flag = BooleanInDictionary(dictionary, key);
    return flag ? CFBooleanGetValue(flag) : missing;
}

ExtraSheets Extra(PMTicketRef ticket, CFStringRef key) {
    const SInt32 number = SInt32InTicket(ticket, key, 1);
    return number == 2 || number == 3 ? static_cast<ExtraSheets>(number) : ExtraSheets::none;
}

/// The dictionaries of an array; what else stands there is passed over.
std::vector<CFDictionaryRef> DictionariesIn(PMTicketRef ticket, CFStringRef key) {
    CFArrayRef array = nullptr;
    PMTicketGetCFArray(ticket, key, &array);
    std::vector<CFDictionaryRef> dictionaries;
    for (CFIndex i = 0; i < CFArrayGetCount(array); ++i) {
        const auto each =
            ValueOfType<CFDictionaryRef>(CFArrayGetValueAtIndex(array, i), CFDictionaryGetTypeID());
        if (each) dictionaries.push_back(each);
    }
    return dictionaries;
}

/// The ticket's own numbers, then the printer's choice; one side where the printer has no other.
PrintedSides SidesOfJob(const PrintJobHost& host) {
    const auto choice = EffectiveChoice(host, "Duplex");
    if (choice.empty()) return PrintedSides::one;
    if (host.hasPane()) {
        for (const CFStringRef key : {CFSTR("com.kalmo.print.FinishingDuplex"),
                                      CFSTR("com.apple.print.PrintSettings.PMDuplexing")}) {
            if (const auto number = NumberInTicket(host.printSettings(), key))
                return SidesOf(number).value_or(PrintedSides::one);
        }
    }
    const auto keyword = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(choice));
    return SidesOf(FindTicketValueForChoice(CFSTR("Duplex"), keyword)).value_or(PrintedSides::one);
}

PlanInput PlanOfDialog(const PrintJobHost& host, int pageCount) {
    const JobSettings& settings = host.settings();
    return {.pageCount = pageCount,
            .pages = settings.pages,
            .pagesPerSide = settings.pagesPerSheet,
            .sides = SidesOfJob(host),
            .copies = settings.copies};
}

std::optional<PlanCover> ReadCover(PMTicketRef ticket, CFStringRef key, JobPapers& papers) {
    const auto cover = DictionaryInTicket(ticket, key);
    if (!cover) return std::nullopt;
    const SInt32 imaged = SInt32InDictionary(cover, CFSTR("SidesImaged")).value_or(1);
    return PlanCover{papers.numberOf(cover), imaged == 4 ? 2 : imaged == 2 ? 1 : 0};
}

PlanInsert ReadInsert(CFDictionaryRef insert, JobPapers& papers) {
    const SInt32 sheets = SInt32InDictionary(insert, CFSTR("Quantity")).value_or(1);
    return {.afterPage = SInt32InDictionary(insert, CFSTR("StartPage")).value_or(0),
            .sheets = std::clamp<int>(sheets, 1, kMostSheetsOfInsert),
            .paper = papers.numberOf(insert)};
}

PageChange ReadException(CFDictionaryRef page, JobPapers& papers) {
    const auto number = [page](CFStringRef key) { return SInt32InDictionary(page, key); };
    const auto shift = DictionaryInDictionary(page, CFSTR("com.kalmo.print.ImageShiftOptionsPage"));
    const SInt32 lightness = number(CFSTR("LightenDarken")).value_or(0);
    return {.where = {.pages = {number(CFSTR("StartPage")).value_or(0),
                                number(CFSTR("EndPage")).value_or(0)},
                      .paper = papers.numberOf(page),
                      .sides = SidesOf(number(CFSTR("SidesImaged")))},
            .lightness = lightness == INT32_MIN
                             ? 0
                             : std::clamp<int>(lightness, -kMostLightness, kMostLightness),
            .shifted = SInt32InDictionary(shift, CFSTR("Option")).value_or(0) > 0};
}

void ReadSpecialPages(PMTicketRef ticket, JobPapers& papers, JobContents& contents) {
    contents.plan.frontCover = ReadCover(ticket, CFSTR(kSpecialPages "FrontCover"), papers);
    contents.plan.backCover = ReadCover(ticket, CFSTR(kSpecialPages "BackCover"), papers);
    for (const auto each : DictionariesIn(ticket, CFSTR(kSpecialPages "InsertList")))
        contents.plan.inserts.push_back(ReadInsert(each, papers));
    for (const auto each : DictionariesIn(ticket, CFSTR(kSpecialPages "ExceptionList"))) {
        contents.changes.push_back(ReadException(each, papers));
        contents.plan.exceptions.push_back(contents.changes.back().where);
    }
}

FaxContents ReadFax(PMTicketRef ticket) {
    const auto options = DictionaryInTicket(ticket, kFaxOptionsKey);
    const SInt64 time = Time(options, CFSTR("SendTime"));
    return {.recipients = static_cast<int>(DictionariesIn(ticket, kFaxRecipientListKey).size()),
            .coverSheet = Flag(options, CFSTR("CoverSheet"), false),
            .confirmation = Flag(options, CFSTR("ConfirmationSheet"), true),
            .sendTime = time > GetLongDateTime() ? time : 0};
}

void ReadJobType(PMTicketRef ticket, JobContents& contents) {
    const auto type = DictionaryInTicket(ticket, kJobTypeKey);
    contents.kind = static_cast<JobKind>(SInt32InDictionary(type, CFSTR("JobType")).value_or(1));
    contents.hasPasscode =
        CFStringGetLength(StringInDictionary(type, CFSTR("SecurePrintPassword"))) > 0;
    contents.releaseTime = Time(type, CFSTR("DelayedPrintTime"));
    contents.savedAndPrinted =
        SInt32InDictionary(type, CFSTR("SaveDisposition")).value_or(1) == kSaveAndPrint;
    contents.fax = ReadFax(ticket);
}

void ReadWatermark(PMTicketRef ticket, JobContents& contents) {
    const auto watermark = DictionaryInTicket(ticket, CFSTR("com.kalmo.print.Watermark"));
    if (!DictionaryInDictionary(watermark, CFSTR("Record"))) return;
    contents.watermark = ShownText(StringInDictionary(watermark, CFSTR("Name")));
    contents.watermarkOnPage1Only =
        SInt32InDictionary(watermark, CFSTR("Pages")) == kWatermarkOnPage1;
}

void ReadJobNotes(PMTicketRef ticket, JobContents& contents) {
    contents.startMessage = HasText(ticket, CFSTR("com.kalmo.print.JobNotesMessage"));
    contents.bannerMessage = HasText(ticket, CFSTR("com.kalmo.print.JobNotesSheetMessage"));
    contents.accountingNote = HasText(ticket, CFSTR("com.kalmo.print.JobNotesAdditionalInfo"));
}

void ReadExtraSheets(const PrintJobHost& host, JobContents& contents) {
    const PMTicketRef ticket = host.printSettings();
    contents.bannerSheet = EffectiveChoice(host, "JCLBanner") == "True";
    contents.slipSheets = Extra(ticket, CFSTR("com.kalmo.print.FinishingSlipSheet"));
    if (EffectiveChoice(host, "MediaType") == "Transparency")
        contents.separators = Extra(ticket, CFSTR("com.kalmo.print.SeparatorOption"));
}

}  // namespace

JobContents ReadJobContents(const PrintJobHost& host, int pageCount) {
    JobContents contents{.plan = PlanOfDialog(host, pageCount)};
    JobPapers papers(host);
    if (host.hasPane()) {
        const PMTicketRef ticket = host.printSettings();
        contents.plan.booklet = FlagInTicket(ticket, kBookletLayoutKey);
        ReadSpecialPages(ticket, papers, contents);
        ReadJobType(ticket, contents);
        ReadWatermark(ticket, contents);
        ReadJobNotes(ticket, contents);
        ReadExtraSheets(host, contents);
    }
    contents.papers = papers.papers();
    return contents;
}

}  // namespace kalmo
