#include "print_dialog/session_tickets.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "print_dialog/papers.h"
#include "print_dialog/sheet_layout.h"
#include "printing/ticket.h"
#include "settings/ppd_choices.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"

#define kJobNameKey CFSTR("com.apple.print.JobInfo.PMJobName")
#define kLayoutNUpKey CFSTR("com.apple.print.PrintSettings.PMLayoutNUp")
#define kCollateKey CFSTR("Collate")
#define kPagesPerSheetKey CFSTR("PagesPerSheet")

namespace kalmo {
namespace {

/// Two-sided printing in numbers, which count before the printer's choice.
const CFStringRef kDuplexKeys[] = {CFSTR("com.kalmo.print.FinishingDuplex"),
                                   CFSTR("com.apple.print.PrintSettings.PMDuplexing")};

Owned<CFStringRef> Text(const std::string& utf8) {
    return Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(utf8));
}

PMTicketRef PrintSettings(PMPrintSession session) {
    return PMSessionGetTicket(session, kPMPrintSettingsTicket);
}

CFMutableDictionaryRef PPDDictionary(PMPrintSession session) {
    CFMutableDictionaryRef dictionary = nullptr;
    PMTicketGetPPDDict(PrintSettings(session), &dictionary);
    return dictionary;
}

void WriteText(PMTicketRef ticket, CFStringRef key, const std::string& text) {
    if (text.empty()) {
        PMTicketReleaseItem(ticket, key);
        return;
    }
    PMTicketSetCFString(ticket, kTicketCreator, key, Text(text), false);
}

CFDictionaryRef Dictionary(PMPrintSession session, CFStringRef key) {
    return DictionaryInTicket(PrintSettings(session), key);
}

bool IsOn(PMPrintSession session, CFStringRef key) {
    return FlagInTicket(PrintSettings(session), key);
}

std::optional<SInt32> StockSize(const std::string& keyword) {
    return FindTicketValueForChoice(CFSTR("PageSize"), Text(keyword));
}

bool HasFaxRecipients(PMPrintSession session) {
    CFArrayRef recipients = nullptr;
    return PMTicketGetCFArray(PrintSettings(session), kFaxRecipientListKey, &recipients) == noErr &&
           CFArrayGetCount(recipients) > 0;
}

std::string TextOf(CFTypeRef value) {
    if (!value || CFGetTypeID(value) != CFStringGetTypeID()) return {};
    return CFStringToUTF8(static_cast<CFStringRef>(value));
}

}  // namespace

void WriteJobName(PMPrintSession session, const std::string& name) {
    WriteText(PrintSettings(session), kJobNameKey, name);
}

void WriteMakeAndModel(PMPrintSession session, const std::string& makeAndModel) {
    WriteText(PMSessionGetTicket(session, kPMPrinterInfoTicket), kPMMakeAndModelNameKey,
              makeAndModel);
}

void WriteOrientation(PMPrintSession session, Orientation orientation) {
    PMTicketSetSInt32(PMSessionGetTicket(session, kPMPageFormatTicket), kTicketCreator,
                      kOrientationKey, static_cast<SInt32>(orientation), false);
}

bool HasOrientation(PMPrintSession session) {
    SInt32 ignored = 0;
    return PMTicketGetSInt32(PMSessionGetTicket(session, kPMPageFormatTicket), kOrientationKey,
                             &ignored) == noErr;
}

Orientation ReadOrientation(PMPrintSession session) {
    const SInt32 value =
        SInt32InTicket(PMSessionGetTicket(session, kPMPageFormatTicket), kOrientationKey,
                       static_cast<SInt32>(Orientation::portrait));
    return value == static_cast<SInt32>(Orientation::landscape) ? Orientation::landscape
                                                                : Orientation::portrait;
}

void WritePagesPerSheet(PMPrintSession session, int pagesPerSheet) {
    if (pagesPerSheet > 1) {
        PMTicketSetCFBoolean(PrintSettings(session), kTicketCreator, kLayoutNUpKey, kCFBooleanTrue,
                             false);
    } else {
        PMTicketReleaseItem(PrintSettings(session), kLayoutNUpKey);
    }
}

void WriteDialogSettings(PMPrintSession session, const JobSettings& settings) {
    const auto dictionary =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    WriteTicketValue(dictionary, kCopiesKey, settings.copies);
    WriteTicketValue(dictionary, kPagesPerSheetKey, settings.pagesPerSheet);
    CFDictionarySetValue(dictionary, kCollateKey,
                         settings.collate ? kCFBooleanTrue : kCFBooleanFalse);
    PMTicketSetCFDictionary(PrintSettings(session), kTicketCreator, kDialogSettingsKey,
                            dictionary.get(), false);
}

void ReadDialogSettings(PMPrintSession session, JobSettings* settings) {
    const auto* stored = Dictionary(session, kDialogSettingsKey);
    if (!stored) return;
    const JobSettings fresh;
    const int copies = SInt32InDictionary(stored, kCopiesKey).value_or(fresh.copies);
    settings->copies = copies >= 1 && copies <= kMostCopies ? copies : fresh.copies;
    const int pages = SInt32InDictionary(stored, kPagesPerSheetKey).value_or(fresh.pagesPerSheet);
    settings->pagesPerSheet = std::ranges::find(kPagesPerSheet, pages) == std::end(kPagesPerSheet)
                                  ? fresh.pagesPerSheet
                                  : pages;
    const auto* collate = CFDictionaryGetValue(stored, kCollateKey);
    settings->collate = !collate || CFGetTypeID(collate) != CFBooleanGetTypeID() ||
                        CFBooleanGetValue(static_cast<CFBooleanRef>(collate));
}

std::string ReadPPDChoice(PMPrintSession session, const std::string& keyword) {
    return TextOf(CFDictionaryGetValue(PPDDictionary(session), Text(keyword).get()));
}

void WritePPDChoice(PMPrintSession session, const std::string& keyword, const std::string& choice) {
    const auto dictionary = PPDDictionary(session);
    if (choice.empty()) {
        CFDictionaryRemoveValue(dictionary, Text(keyword).get());
    } else {
        CFDictionarySetValue(dictionary, Text(keyword).get(), Text(choice).get());
    }
}

bool HasChoice(const PPDDescription& printer, const std::string& keyword,
               const std::string& choice) {
    if (keyword == "PageSize" && FindPaper(printer, choice)) return true;
    const auto option = std::ranges::find(printer.options, keyword, &PPDOptionTexts::keyword);
    return option != printer.options.end() &&
           std::ranges::find(option->choices, choice, &PPDChoiceText::keyword) !=
               option->choices.end();
}

void ReplacePPDChoice(PMPrintSession session, const std::string& keyword,
                      const std::string& choice) {
    WritePPDChoice(session, keyword, choice);
    if (keyword != "Duplex") return;
    for (const CFStringRef key : kDuplexKeys) PMTicketReleaseItem(PrintSettings(session), key);
}

void RaiseRotation(PMPrintSession session) {
    const auto ticket = PrintSettings(session);
    SInt32 rotation = 0;
    if (PMTicketGetSInt32(ticket, kRotateKey, &rotation) != noErr) return;
    if (rotation == std::numeric_limits<SInt32>::max()) return;
    PMTicketSetSInt32(ticket, kTicketCreator, kRotateKey, rotation + 1, false);
}

std::vector<PPDSelection> DropForeignPPDChoices(PMPrintSession session,
                                                const PPDDescription& printer) {
    std::vector<PPDSelection> dropped;
    const auto dictionary = PPDDictionary(session);
    std::vector<CFTypeRef> keys(static_cast<std::size_t>(CFDictionaryGetCount(dictionary)));
    CFDictionaryGetKeysAndValues(dictionary, keys.data(), nullptr);
    for (CFTypeRef key : keys) {
        PPDSelection each{TextOf(key), TextOf(CFDictionaryGetValue(dictionary, key))};
        if (HasChoice(printer, each.option, each.choice)) continue;
        CFDictionaryRemoveValue(dictionary, key);
        dropped.push_back(std::move(each));
    }
    return dropped;
}

bool StockHasPaper(PMPrintSession session, const std::string& keyword) {
    const auto size = StockSize(keyword);
    if (!size) return true;
    SInt32 stored = 0;
    const auto* value = CFDictionaryGetValue(Dictionary(session, kJobLevelStockKey), CFSTR("Size"));
    return value && CFGetTypeID(value) == CFNumberGetTypeID() &&
           CFNumberGetValue(static_cast<CFNumberRef>(value), kCFNumberSInt32Type, &stored) &&
           stored == *size;
}

bool StockTakesPaper(PMPrintSession session) {
    return !IsOn(session, kBookletLayoutKey) || !IsOn(session, kBookletForceNewSizeKey);
}

void WriteStockPaper(PMPrintSession session, const std::string& keyword) {
    if (!StockTakesPaper(session)) return;
    const auto stock = Dictionary(session, kJobLevelStockKey);
    const auto size = StockSize(keyword);
    if (!stock || !size) return;
    const auto changed = Owned<CFMutableDictionaryRef>::Adopt(
        CFDictionaryCreateMutableCopy(kCFAllocatorDefault, 0, stock));
    WriteTicketValue(changed, CFSTR("Size"), *size);
    const auto creator = PMTicketGetItemCreator(PrintSettings(session), kJobLevelStockKey);
    PMTicketSetCFDictionary(PrintSettings(session), creator ? creator : kTicketCreator,
                            kJobLevelStockKey, changed.get(), false);
}

bool HoldsSecrets(PMPrintSession session) {
    const auto jobType = Dictionary(session, kJobTypeKey);
    return !TextOf(CFDictionaryGetValue(jobType, CFSTR("SecurePrintPassword"))).empty() ||
           CFDictionaryGetCount(Dictionary(session, kFaxOptionsKey)) > 0 ||
           HasFaxRecipients(session);
}

}  // namespace kalmo
