#include "print_dialog/presets.h"

#include <algorithm>

#include "print_dialog/foreign_settings.h"
#include "print_dialog/reasons.h"
#include "print_dialog/session_tickets.h"
#include "print_dialog/window_texts.h"
#include "printing/ticket.h"
#include "printing/ticket_file.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "system/clock.h"

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
    {kJobTypeKey, CFSTR("SavedJobName")},
    {kFaxRecipientListKey},
    {kFaxOptionsKey, CFSTR("DialingPrefix")},
    {kFaxOptionsKey, CFSTR("CreditCard")},
    {kFaxOptionsKey, CFSTR("CustomRecipientText")},
    {kFaxOptionsKey, CFSTR("CoverSheetNotes")},
    {CFSTR("com.apple.print.JobInfo")},
    {CFSTR("com.kalmo.print.nonce")},
    {CFSTR("com.kalmo.print.ClientInformation")},
    {CFSTR("com.kalmo.print.JobNotesUseJobName")},
    {CFSTR("com.kalmo.print.JobNotesJobName")},
    {CFSTR("com.kalmo.print.JobNotesRecipientUseLoginName")},
    {CFSTR("com.kalmo.print.JobNotesRecipient")},
};
/// What would surprise with the next job: thirty copies, no print until somebody comes to the
/// printer, a message to somebody else, other paper on pages of another document.
const Place kOfOneJob[] = {
    {kDialogSettingsKey, kCopiesKey},
    {kJobTypeKey},
    {kFaxOptionsKey},
    {CFSTR("com.kalmo.print.JobNotesMessage")},
    {CFSTR("com.kalmo.print.JobNotesSheetMessage")},
    {CFSTR("com.kalmo.print.SpecialPages.InsertList")},
    {CFSTR("com.kalmo.print.SpecialPages.ExceptionList")},
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
    [[nodiscard]] std::string bytes() const { return WriteTicketFile(session_, nullptr); }
    /// With words for people whose printer does not have what that of `host` has.
    [[nodiscard]] std::string bytesOf(const PrintJobHost& host) const {
        if (!host.description()) return bytes();
        return WriteTicketFile(session_, WordsForOtherPrinters(session_, *host.description()));
    }
    [[nodiscard]] PMTicketRef settings() const {
        return PMSessionGetTicket(session_, kPMPrintSettingsTicket);
    }
    template <std::size_t Count>
    void leaveOut(const Place (&places)[Count]) const {
        for (const Place& place : places) {
            place.inner ? change(place, nullptr) : removeAll(CFStringToUTF8(place.key));
        }
    }
    /// A stored job of the next document has that one's name.
    void useJobName() const {
        if (DictionaryInTicket(settings(), kJobTypeKey))
            change({kJobTypeKey, CFSTR("UseJobName")}, kCFBooleanTrue);
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
    std::vector<std::string> dropForeign(const PPDDescription* printer) const {
        return DropForeignSettings(session_, printer);
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

void LeaveOutPrivate(const LooseTickets& tickets) {
    tickets.leaveOut(kPrivate);
    tickets.leaveOutLoginNames();
    tickets.useJobName();
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
    LeaveOutPrivate(tickets);
    tickets.takeColor(host.settings());
    return tickets;
}

}  // namespace

std::string PresetBytes(const PrintJobHost& host) {
    const LooseTickets tickets = ToBeStored(host);
    if (!host.settings().orientationChosen) tickets.leaveOutOrientation();
    return tickets.bytesOf(host);
}

std::string LastSettingsBytes(const PrintJobHost& host) {
    const LooseTickets tickets = ToBeStored(host);
    tickets.leaveOut(kOfOneJob);
    tickets.leaveOutOrientation();
    return tickets.bytesOf(host);
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
    LeaveOutPrivate(tickets);
    tickets.moveMoments();
    if (host.hasPane()) tickets.raiseRotation();
    tickets.completeDialogSettings();
    *notApplied = tickets.dropForeign(host.description());
    return host.readTicket(tickets.bytes());
}

void ApplyPrintersDefaults(PrintJobHost& host) {
    const LooseTickets tickets;
    tickets.completeDialogSettings();
    static_cast<void>(host.readTicket(tickets.bytes()));
}

}  // namespace kalmo
