#include "settings/ticket.h"

#include <utility>

#include "settings/dictionary.h"

namespace kalmo {

OSStatus GetTicketFromSession(PMPrintSession session, CFStringRef ticketName, PMTicketRef* ticket) {
    CFTypeRef data = nullptr;
    const OSStatus status = PMSessionGetDataFromSession(session, ticketName, &data);
    if (status != noErr) return status;
    SInt32 reference = 0;
    const auto number = ValueOfType<CFNumberRef>(data, CFNumberGetTypeID());
    if (number && CFNumberGetValue(number, kCFNumberSInt32Type, &reference))
        *ticket = static_cast<PMTicketRef>(reference);
    return noErr;
}

CFDictionaryRef DictionaryInTicket(PMTicketRef ticket, CFStringRef key) {
    CFDictionaryRef dictionary = nullptr;
    PMTicketGetCFDictionary(ticket, key, &dictionary);
    return dictionary;
}

bool FlagInTicket(PMTicketRef ticket, CFStringRef key) {
    CFBooleanRef flag = nullptr;
    PMTicketGetCFBoolean(ticket, key, &flag);
    return CFBooleanGetValue(flag);
}

SInt32 SInt32InTicket(PMTicketRef ticket, CFStringRef key, SInt32 missing) {
    SInt32 number = missing;
    PMTicketGetSInt32(ticket, key, &number);
    return number;
}

void WriteTicketValue(CFMutableDictionaryRef dictionary, CFStringRef key, CFIndex value) {
    CFDictionarySetNumber(dictionary, key, kCFNumberCFIndexType, &value);
}

bool GetCFIndexFromCFDictionary(CFDictionaryRef dictionary, CFStringRef key, CFIndex* value) {
    return CFDictionaryGetNumber(dictionary, key, kCFNumberCFIndexType, value);
}

std::optional<SInt32> SInt32InDictionary(CFDictionaryRef dictionary, CFStringRef key) {
    CFIndex value = 0;
    const bool fits =
        GetCFIndexFromCFDictionary(dictionary, key, &value) && std::in_range<SInt32>(value);
    return fits ? std::optional(static_cast<SInt32>(value)) : std::nullopt;
}

}  // namespace kalmo
