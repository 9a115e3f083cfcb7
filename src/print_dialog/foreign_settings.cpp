#include "print_dialog/foreign_settings.h"

#include <algorithm>
#include <iterator>

#include "print_dialog/color_options.h"
#include "print_dialog/job_contents.h"
#include "print_dialog/job_paper.h"
#include "print_dialog/papers.h"
#include "print_dialog/session_tickets.h"
#include "print_dialog/summary_phrases.h"
#include "print_dialog/window_texts.h"
#include "settings/dictionary.h"
#include "settings/installable_options.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"

/// PPD main keyword to "OPTION: CHOICE".
#define kChoiceTextsKey CFSTR("com.kalmo.print.ChoiceTexts")
#define kSlipSheetKey CFSTR("com.kalmo.print.FinishingSlipSheet")

namespace kalmo {
namespace {

constexpr const char* kPaperSize = "PageSize";
constexpr const char* kNothingChosen[] = {"None", "False", "Off", ""};

/// Whether somebody would miss the choice.
bool IsWish(const std::string& choice) {
    return std::ranges::find(kNothingChosen, choice) == std::end(kNothingChosen);
}

/// "OPTION: CHOICE", as far as the printer has words for them.
std::string InWords(const PPDDescription& printer, const PPDSelection& selection) {
    const auto& [keyword, choice] = selection;
    if (keyword == kPaperSize) {
        const auto paper = FindPaper(printer, choice);
        return HostText("Paper size of", {paper ? paper->text : choice});
    }
    const auto* const option = FindOption(printer, keyword);
    if (!option) return keyword + ": " + choice;
    const auto named = std::ranges::find(option->choices, choice, &PPDChoiceText::keyword);
    return option->text + ": " + (named == option->choices.end() ? choice : named->text);
}

std::string TextIn(CFDictionaryRef texts, const std::string& key) {
    const auto name = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(key));
    return CFStringToUTF8(StringInDictionary(texts, name));
}

PMTicketRef SettingsOf(PMPrintSession session) {
    return PMSessionGetTicket(session, kPMPrintSettingsTicket);
}

void DropForeignChoices(PMPrintSession session, const PPDDescription& printer,
                        std::vector<std::string>& missed) {
    const auto texts =
        Owned<CFDictionaryRef>::Retain(DictionaryInTicket(SettingsOf(session), kChoiceTextsKey));
    PMTicketReleaseItem(SettingsOf(session), kChoiceTextsKey);
    for (const PPDSelection& each : DropForeignPPDChoices(session, printer)) {
        if (!IsWish(each.choice)) continue;
        const std::string words = TextIn(texts, each.option);
        missed.push_back(ShownText(words.empty() ? InWords(printer, each) : words));
    }
}

bool IsInstalled(const PPDDescription& printer, CFStringRef feature) {
    for (const auto* row = InstalledFeatures; row->feature; ++row) {
        if (!CFEqual(row->feature, feature)) continue;
        const auto* const option = FindOption(printer, CFStringToUTF8(row->option));
        if (option && option->defaultChoice == CFStringToUTF8(row->choice)) return true;
    }
    return false;
}

/// Kinds of job that take a part of the printer.
const struct {
    JobKind kind;
    CFStringRef feature;
    const char* text;  // key
} kInstalledKinds[] = {{JobKind::saved, CFSTR("JobStorage"), "Job type stored"},
                       {JobKind::fax, CFSTR("FaxKey"), "Job type fax"}};

/// What tickets hold as numbers: the pane offers a kind of job and slip sheets only where the
/// printer has them, but keeps what it has read.
void DropForeignNumbers(PMTicketRef settings, const PPDDescription& printer,
                        std::vector<std::string>& missed) {
    const auto kind =
        SInt32InDictionary(DictionaryInTicket(settings, kJobTypeKey), CFSTR("JobType"));
    for (const auto& row : kInstalledKinds) {
        if (kind != static_cast<SInt32>(row.kind) || IsInstalled(printer, row.feature)) continue;
        PMTicketReleaseItem(settings, kJobTypeKey);
        PMTicketReleaseItem(settings, kFaxOptionsKey);
        missed.push_back(NamedPhrase(HostText("Job type"), HostText(row.text)));
    }
    if (FindOption(printer, "KLSlipSheetPrint")) return;
    if (SInt32InTicket(settings, kSlipSheetKey, 1) > 1) missed.push_back(HostText("Slip sheets"));
    PMTicketReleaseItem(settings, kSlipSheetKey);
}

}  // namespace

std::vector<NamedChoice> ChosenInWords(const PrintJobHost& host) {
    std::vector<NamedChoice> named;
    if (!host.description()) return named;
    const auto add = [&](const std::string& option, const std::string& usual) {
        const PPDSelection each{option, host.ppdChoice(option)};
        if (each.choice == usual || !IsWish(each.choice)) return;
        named.push_back({each, ShownText(InWords(*host.description(), each))});
    };
    add(kPaperSize, host.description()->defaultPaper);
    for (const PPDOptionTexts& option : host.description()->options)
        add(option.keyword, option.defaultChoice);
    return named;
}

Owned<CFMutableDictionaryRef> WordsForOtherPrinters(PMPrintSession session,
                                                    const PPDDescription& printer) {
    const auto texts =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    const auto add = [&](const std::string& option) {
        const PPDSelection each{option, ReadPPDChoice(session, option)};
        if (!HasChoice(printer, each.option, each.choice)) return;
        const auto key = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(option));
        const auto words =
            Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(InWords(printer, each)));
        CFDictionarySetValue(texts, key.get(), words.get());
    };
    add(kPaperSize);
    for (const PPDOptionTexts& option : printer.options) add(option.keyword);
    auto items =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    CFDictionarySetValue(items, kChoiceTextsKey, texts.get());
    return items;
}

std::vector<std::string> DropForeignSettings(PMPrintSession session,
                                             const PPDDescription* printer) {
    std::vector<std::string> missed;
    DropForeignChoices(session, printer ? *printer : PPDDescription(), missed);
    // Its choices wait for a printer that is known.
    if (!printer) return {};
    DropForeignNumbers(SettingsOf(session), *printer, missed);
    return missed;
}

}  // namespace kalmo
