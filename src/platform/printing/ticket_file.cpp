#include "printing/ticket_file.h"

#include "foundation/property_list.h"
#include "printing/ticket_private.h"

namespace {

/// Where the session keeps what a later version may have put beside the three dictionaries.
CFStringRef UnknownKeysName() { return CFSTR("com.kalmo.print.UnknownTicketFileKeys"); }
/// Fresh in each job; one that was read never goes out again.
CFStringRef NonceKey() { return CFSTR("com.kalmo.print.nonce"); }

struct Sections {
    CFStringRef printSettings = CFSTR("PrintSettings");
    CFStringRef ppdChoices = CFSTR("PPDChoices");
    CFStringRef pageFormat = CFSTR("PageFormat");
};

bool Refuse(std::string* reason, std::string why) {
    if (reason) *reason = std::move(why);
    return false;
}

/// The file as one dictionary the caller may change; null with a reason.
Owned<CFMutableDictionaryRef> ParseTicketFile(std::string_view bytes, std::string* reason) {
    if (bytes.size() > kPropertyListMaximumBytes) {
        Refuse(reason, "the ticket is larger than 64 MiB");
        return {};
    }
    const auto data = Owned<CFDataRef>::Adopt(CFDataCreate(
        nullptr, reinterpret_cast<const UInt8*>(bytes.data()), static_cast<CFIndex>(bytes.size())));
    Owned<CFStringRef> error;
    const auto list = Owned<CFTypeRef>::Adopt(
        CFPropertyListCreateFromXMLData(nullptr, data, kCFPropertyListImmutable, error.adopt()));
    if (!list) {
        Refuse(reason, "this is no ticket: " + CFStringToUTF8(error));
    } else if (CFGetTypeID(list) != CFDictionaryGetTypeID()) {
        Refuse(reason, "this is no ticket: its top level is no dictionary");
    } else {
        return Owned<CFMutableDictionaryRef>::Adopt(
            CFDictionaryCreateMutableCopy(nullptr, 0, static_cast<CFDictionaryRef>(list.get())));
    }
    return {};
}

/// Moves a section out of `file` into `section`, which stays empty when the file has none. False
/// when it is no dictionary.
bool TakeSection(CFMutableDictionaryRef file, CFStringRef name,
                 Owned<CFMutableDictionaryRef>* section, std::string* reason) {
    const CFTypeRef value = CFDictionaryGetValue(file, name);
    if (value && CFGetTypeID(value) != CFDictionaryGetTypeID()) {
        return Refuse(reason, "this is no ticket: " + CFStringToUTF8(name) + " is no dictionary");
    }
    *section = Owned<CFMutableDictionaryRef>::Adopt(
        value ? CFDictionaryCreateMutableCopy(nullptr, 0, static_cast<CFDictionaryRef>(value))
              : CFDictionaryCreateMutable(nullptr, 0));
    CFDictionaryRemoveValue(file, name);
    return true;
}

void CopyEntry(const void* key, const void* value, void* target) {
    CFDictionarySetValue(static_cast<CFMutableDictionaryRef>(target), key, value);
}

void AddEntries(CFMutableDictionaryRef target, CFDictionaryRef entries) {
    if (entries) CFDictionaryApplyFunction(entries, CopyEntry, target);
}

CFDictionaryRef UnknownKeys(PMPrintSession session) {
    CFTypeRef kept = nullptr;
    PMSessionGetDataFromSession(session, UnknownKeysName(), &kept);
    return static_cast<CFDictionaryRef>(kept);
}

Owned<CFMutableDictionaryRef> ItemsOf(PMTicketRef ticket) {
    const auto items = Owned<CFDictionaryRef>::Adopt(PMTicketCopyItems(ticket));
    return Owned<CFMutableDictionaryRef>::Adopt(
        items ? CFDictionaryCreateMutableCopy(nullptr, 0, items)
              : CFDictionaryCreateMutable(nullptr, 0));
}

}  // namespace

Boolean ReadTicketFile(PMPrintSession session, std::string_view bytes, std::string* reason) {
    if (!session) return Refuse(reason, "there is no print session");
    const Sections names;
    const Owned<CFMutableDictionaryRef> file = ParseTicketFile(bytes, reason);
    Owned<CFMutableDictionaryRef> settings, choices, format;
    if (!file || !TakeSection(file, names.printSettings, &settings, reason) ||
        !TakeSection(file, names.ppdChoices, &choices, reason) ||
        !TakeSection(file, names.pageFormat, &format, reason)) {
        return false;
    }
    CFDictionaryRemoveValue(settings, NonceKey());
    const PMTicketRef settingsTicket = PMSessionGetTicket(session, kPMPrintSettingsTicket);
    TicketReplaceItems(settingsTicket, settings);
    TicketReplacePPDChoices(settingsTicket, choices);
    TicketReplaceItems(PMSessionGetTicket(session, kPMPageFormatTicket), format);
    PMSessionSetDataInSession(session, UnknownKeysName(), file.get());
    return true;
}

std::string WriteTicketFile(PMPrintSession session, CFDictionaryRef extraSettings) {
    const Sections names;
    const PMTicketRef ticket = PMSessionGetTicket(session, kPMPrintSettingsTicket);
    CFMutableDictionaryRef choices = nullptr;
    if (PMTicketGetPPDDict(ticket, &choices) != noErr) return {};
    const auto settings = ItemsOf(ticket);
    AddEntries(settings, extraSettings);
    const auto format = ItemsOf(PMSessionGetTicket(session, kPMPageFormatTicket));

    const auto file =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    CFDictionarySetValue(file, names.printSettings, settings.get());
    CFDictionarySetValue(file, names.ppdChoices, choices);
    CFDictionarySetValue(file, names.pageFormat, format.get());
    AddEntries(file, UnknownKeys(session));
    const auto data =
        Owned<CFDataRef>::Adopt(CFPropertyListCreateXMLData(kCFAllocatorDefault, file.get()));
    return data ? std::string(reinterpret_cast<const char*>(CFDataGetBytePtr(data)),
                              static_cast<std::size_t>(CFDataGetLength(data)))
                : std::string();
}
