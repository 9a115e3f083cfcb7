#include "print_dialog/presets.h"

#include <algorithm>
#include <iterator>

#include "print_dialog/reasons.h"
#include "print_dialog/session_tickets.h"
#include "print_dialog/window_texts.h"
#include "printing/ticket.h"
#include "printing/ticket_file.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "system/clock.h"

/// In a preset: PPD main keyword to "OPTION: CHOICE", in words for people with another printer.
#define kChoiceTextsKey CFSTR("com.kalmo.print.ChoiceTexts")

namespace kalmo {
namespace {

/// An item of the print settings with all whose keys continue it after a point; or, with `inner`,
/// an entry of the dictionary there.
struct Place {
    CFStringRef key;
    CFStringRef inner = nullptr;
};

/// What is for nobody else and for no other job; neither written nor read.
const Place kPrivate[] = {
    {kJobTypeKey, CFSTR("SecurePrintPassword")},
    {kFaxRecipientListKey},
    {kFaxOptionsKey, CFSTR("DialingPrefix")},
    {kFaxOptionsKey, CFSTR("CreditCard")},
    {kFaxOptionsKey, CFSTR("CustomRecipientText")},
    {CFSTR("com.apple.print.JobInfo")},
    {CFSTR("com.kalmo.print.nonce")},
    {CFSTR("com.kalmo.print.ClientInformation")},
    {CFSTR("com.kalmo.print.JobNotesUseJobName")},
    {CFSTR("com.kalmo.print.JobNotesJobName")},
    {CFSTR("com.kalmo.print.JobNotesRecipientUseLoginName")},
    {CFSTR("com.kalmo.print.JobNotesRecipient")},
};
/// What would surprise with the next job: thirty copies, no print until somebody comes to the
/// printer, a message to somebody else.
const Place kOfOneJob[] = {
    {kDialogSettingsKey, kCopiesKey},
    {kJobTypeKey},
    {kFaxOptionsKey},
    {CFSTR("com.kalmo.print.JobNotesMessage")},
    {CFSTR("com.kalmo.print.JobNotesSheetMessage")},
};
/// What changes although nobody has chosen anything: the pane counts its rotation down.
const Place kOfTheDocument[] = {{CFSTR("com.apple.print.JobInfo")}, {kRotateKey}};
/// Moments that a job waits for.
const Place kMoments[] = {{kJobTypeKey, CFSTR("DelayedPrintTime")},
                          {kFaxOptionsKey, CFSTR("SendTime")}};
/// A name that stands for the login name belongs to whoever is logged in.
const struct {
    CFStringRef flag, name;
} kLoginNames[] = {{CFSTR("com.kalmo.print.JobNotesSenderUseLoginName"),
                    CFSTR("com.kalmo.print.JobNotesSenderName")}};

constexpr const char* kNothingChosen[] = {"None", "False", "Off", ""};
constexpr std::size_t kLongestWords = 200;
constexpr SInt64 kSecondsPerDay = 86'400;

std::string Utf8(CFTypeRef value) {
    const bool isText = value && CFGetTypeID(value) == CFStringGetTypeID();
    return isText ? CFStringToUTF8(static_cast<CFStringRef>(value)) : std::string();
}

std::vector<CFTypeRef> KeysOf(CFDictionaryRef dictionary) {
    std::vector<CFTypeRef> keys(static_cast<std::size_t>(CFDictionaryGetCount(dictionary)));
    CFDictionaryGetKeysAndValues(dictionary, keys.data(), nullptr);
    return keys;
}

/// A file's words go to a terminal and into a line of the window.
std::string Printable(std::string words) {
    if (words.size() > kLongestWords) words.resize(kLongestWords);
    std::ranges::replace_if(
        words, [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; }, ' ');
    return words;
}

SInt64 NextSuchTime(SInt64 moment) {
    const SInt64 now = GetLongDateTime();
    const SInt64 today = now - now % kSecondsPerDay + moment % kSecondsPerDay;
    return today < now ? today + kSecondsPerDay : today;
}

/// Tickets of their own to change settings in, before or after those of a job.
class LooseTickets final {
public:
    Outcome read(std::string_view bytes) const {
        std::string reason;
        if (ReadTicketFile(session_, bytes, &reason)) return {};
        return {ReasonInWords(reason)};
    }
    [[nodiscard]] std::string bytes(CFDictionaryRef extra = nullptr) const {
        return WriteTicketFile(session_, extra);
    }
    [[nodiscard]] PMTicketRef settings() const {
        return PMSessionGetTicket(session_, kPMPrintSettingsTicket);
    }
    [[nodiscard]] CFMutableDictionaryRef choices() const {
        CFMutableDictionaryRef choices = nullptr;
        PMTicketGetPPDDict(settings(), &choices);
        return choices;
    }

    template <std::size_t Count>
    void leaveOut(const Place (&places)[Count]) const {
        for (const Place& place : places) {
            place.inner ? change(place, nullptr) : removeAll(CFStringToUTF8(place.key));
        }
    }
    void leaveOutLoginNames() const {
        for (const auto& row : kLoginNames) {
            CFBooleanRef flag = nullptr;
            const bool typed = PMTicketGetCFBoolean(settings(), row.flag, &flag) == noErr &&
                               !CFBooleanGetValue(flag);
            if (!typed) PMTicketReleaseItem(settings(), row.name);
        }
    }
    /// The dialog's color is not that of a fax, which is black whatever the dialog says.
    void takeColor(const JobSettings& dialog) const {
        if (dialog.colorOption.empty()) return;
        WritePPDChoice(session_, dialog.colorOption, dialog.colorChoice);
    }
    void leaveOutOrientation() const {
        PMTicketReleaseItem(PMSessionGetTicket(session_, kPMPageFormatTicket), kOrientationKey);
    }
    void moveMoments() const {
        for (const Place& place : kMoments) {
            SInt64 moment = 0;
            const auto* const stored = DictionaryInTicket(settings(), place.key);
            const auto* const value = CFDictionaryGetValue(stored, place.inner);
            if (!value || CFGetTypeID(value) != CFNumberGetTypeID()) continue;
            CFNumberGetValue(static_cast<CFNumberRef>(value), kCFNumberSInt64Type, &moment);
            if (moment <= 0) continue;
            moment = NextSuchTime(moment);
            change(place, Owned<CFNumberRef>::Adopt(
                              CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt64Type, &moment)));
        }
    }
    void raiseRotation() const { RaiseRotation(session_); }
    /// So that what is not in it is that of a new dialog.
    void completeDialogSettings() const {
        JobSettings settingsThere;
        ReadDialogSettings(session_, &settingsThere);
        WriteDialogSettings(session_, settingsThere);
    }

private:
    void removeAll(const std::string& key) const {
        const auto items = Owned<CFDictionaryRef>::Adopt(PMTicketCopyItems(settings()));
        for (const CFTypeRef item : KeysOf(items)) {
            const std::string name = Utf8(item);
            if (name != key && !name.starts_with(key + '.')) continue;
            PMTicketReleaseItem(settings(), static_cast<CFStringRef>(item));
        }
    }
    /// Null removes. What should be a dictionary and is none goes as a whole.
    void change(const Place& place, CFTypeRef value) const {
        const auto* const stored = DictionaryInTicket(settings(), place.key);
        if (!stored) {
            PMTicketReleaseItem(settings(), place.key);
            return;
        }
        const auto changed = Owned<CFMutableDictionaryRef>::Adopt(
            CFDictionaryCreateMutableCopy(kCFAllocatorDefault, 0, stored));
        value ? CFDictionarySetValue(changed, place.inner, value)
              : CFDictionaryRemoveValue(changed, place.inner);
        PMTicketSetCFDictionary(settings(), kTicketCreator, place.key, changed.get(), false);
    }

    Owned<PMPrintSession> session_ = Owned<PMPrintSession>::Adopt(PMSessionCreate());
};

const PPDDescription& DescriptionOf(const PrintJobHost& host) {
    static const PPDDescription nothing;
    return host.description() ? *host.description() : nothing;
}

std::string PaperInWords(const PPDDescription& printer, const std::string& keyword) {
    const auto paper = std::ranges::find(printer.papers, keyword, &PPDPaper::keyword);
    return HostText("Paper size of", {paper == printer.papers.end() ? keyword : paper->text});
}

/// "OPTION: CHOICE", as far as the printer has words for them.
std::string InWords(const PPDDescription& printer, const std::string& keyword,
                    const std::string& choice) {
    if (keyword == "PageSize") return PaperInWords(printer, choice);
    const auto option = std::ranges::find(printer.options, keyword, &PPDOptionTexts::keyword);
    if (option == printer.options.end()) return keyword + ": " + choice;
    const auto named = std::ranges::find(option->choices, choice, &PPDChoiceText::keyword);
    return option->text + ": " + (named == option->choices.end() ? choice : named->text);
}

Owned<CFMutableDictionaryRef> ChoiceTexts(const PPDDescription& printer, CFDictionaryRef choices) {
    auto texts =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    for (const CFTypeRef key : KeysOf(choices)) {
        const std::string choice = Utf8(CFDictionaryGetValue(choices, key));
        if (!HasChoice(printer, Utf8(key), choice)) continue;
        const auto words =
            Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(InWords(printer, Utf8(key), choice)));
        CFDictionarySetValue(texts, key, words.get());
    }
    return texts;
}

/// Takes out what the printer does not have, and tells of it unless it chose nothing anyway.
void DropForeign(const LooseTickets& tickets, const PPDDescription& printer,
                 std::vector<std::string>* dropped) {
    const auto texts =
        Owned<CFDictionaryRef>::Retain(DictionaryInTicket(tickets.settings(), kChoiceTextsKey));
    PMTicketReleaseItem(tickets.settings(), kChoiceTextsKey);
    for (const CFTypeRef key : KeysOf(tickets.choices())) {
        const std::string choice = Utf8(CFDictionaryGetValue(tickets.choices(), key));
        if (HasChoice(printer, Utf8(key), choice)) continue;
        const std::string words = Utf8(CFDictionaryGetValue(texts, key));
        if (std::ranges::find(kNothingChosen, choice) == std::end(kNothingChosen)) {
            dropped->push_back(
                Printable(words.empty() ? InWords(printer, Utf8(key), choice) : words));
        }
        CFDictionaryRemoveValue(tickets.choices(), key);
    }
}

Outcome ReadPreset(const Preset& preset, const LooseTickets& tickets) {
    std::string bytes;
    if (const auto read = ReadPresetFile(preset.file, &bytes); !read) return read;
    const auto read = tickets.read(bytes);
    return {read ? "" : preset.file.string() + ": " + read.error};
}

LooseTickets ToBeStored(const PrintJobHost& host) {
    LooseTickets tickets;
    static_cast<void>(tickets.read(host.ticketFile()));
    tickets.leaveOut(kPrivate);
    tickets.leaveOutLoginNames();
    tickets.takeColor(host.settings());
    return tickets;
}

std::string BytesFor(const PrintJobHost& host, const LooseTickets& tickets) {
    const auto texts = ChoiceTexts(DescriptionOf(host), tickets.choices());
    const auto extra =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    CFDictionarySetValue(extra, kChoiceTextsKey, texts.get());
    return tickets.bytes(extra);
}

}  // namespace

std::string PresetBytes(const PrintJobHost& host) {
    const LooseTickets tickets = ToBeStored(host);
    if (!host.settings().orientationChosen) tickets.leaveOutOrientation();
    return BytesFor(host, tickets);
}

std::string LastSettingsBytes(const PrintJobHost& host) {
    const LooseTickets tickets = ToBeStored(host);
    tickets.leaveOut(kOfOneJob);
    tickets.leaveOutOrientation();
    return BytesFor(host, tickets);
}

std::string SettingsFingerprint(const PrintJobHost& host) {
    const LooseTickets tickets;
    static_cast<void>(tickets.read(host.ticketFile()));
    tickets.leaveOut(kOfTheDocument);
    tickets.leaveOutOrientation();
    return tickets.bytes();
}

Outcome CheckPreset(const Preset& preset) { return ReadPreset(preset, LooseTickets()); }

Outcome ApplyPreset(PrintJobHost& host, const Preset& preset,
                    std::vector<std::string>* notApplied) {
    const LooseTickets tickets;
    if (const auto read = ReadPreset(preset, tickets); !read) return read;
    tickets.leaveOut(kPrivate);
    tickets.leaveOutLoginNames();
    tickets.moveMoments();
    if (host.hasPane()) tickets.raiseRotation();
    tickets.completeDialogSettings();
    notApplied->clear();
    DropForeign(tickets, DescriptionOf(host), notApplied);
    return host.readTicket(tickets.bytes());
}

void ApplyPrintersDefaults(PrintJobHost& host) {
    const LooseTickets tickets;
    tickets.completeDialogSettings();
    static_cast<void>(host.readTicket(tickets.bytes()));
}

}  // namespace kalmo
