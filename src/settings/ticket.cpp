#include "settings/ticket.h"

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

void WriteTicketValue(CFMutableDictionaryRef dictionary, CFStringRef key, CFIndex value) {
    CFDictionarySetNumber(dictionary, key, kCFNumberCFIndexType, &value);
}

bool GetCFIndexFromCFDictionary(CFDictionaryRef dictionary, CFStringRef key, CFIndex* value) {
    return CFDictionaryGetNumber(dictionary, key, kCFNumberCFIndexType, value);
}

}  // namespace kalmo
