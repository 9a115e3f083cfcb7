#include "printing/ticket.h"

#include <unordered_map>

#include "printing/ticket_private.h"

namespace {

Owned<CFMutableDictionaryRef> EmptyDictionary() {
    return Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
}

/// Three dictionaries of the same keys, so that the values alone are the ticket as others see it.
struct Ticket {
    Owned<CFMutableDictionaryRef> values = EmptyDictionary();
    Owned<CFMutableDictionaryRef> creators = EmptyDictionary();
    Owned<CFMutableDictionaryRef> locks = EmptyDictionary();  // a key that stands here is locked
    Owned<CFMutableDictionaryRef> ppdChoices;                 // made when first asked for
};

std::unordered_map<PMTicketRef, Ticket>& Tickets() {
    static auto* const tickets = new std::unordered_map<PMTicketRef, Ticket>;
    return *tickets;
}

Ticket* FindTicket(PMTicketRef number) {
    const auto found = Tickets().find(number);
    return found == Tickets().end() ? nullptr : &found->second;
}

bool IsAnything(CFTypeRef) { return true; }

template <CFTypeID (*TypeID)()>
bool Is(CFTypeRef value) {
    return CFGetTypeID(value) == TypeID();
}

template <typename Ref>
OSStatus Get(PMTicketRef number, CFStringRef key, bool (*isWanted)(CFTypeRef), Ref* value) {
    const Ticket* ticket = FindTicket(number);
    if (!ticket) return kPMInvalidTicket;
    const CFTypeRef stored = CFDictionaryGetValue(ticket->values, key);
    if (!stored || !isWanted(stored)) return kPMKeyNotFound;
    if (!value) return paramErr;
    *value = static_cast<Ref>(stored);
    return noErr;
}

/// The arguments may be lent by the very item that is written over.
OSStatus Set(PMTicketRef number, CFStringRef creator, CFStringRef key, CFTypeRef value,
             Boolean locked) {
    Ticket* ticket = FindTicket(number);
    if (!ticket) return kPMInvalidTicket;
    if (!key || !value) return paramErr;
    if (CFDictionaryContainsKey(ticket->locks, key)) return kPMItemIsLocked;
    const auto keptCreator = Owned<CFStringRef>::Retain(creator);
    const auto keptValue = Owned<CFTypeRef>::Retain(value);
    CFDictionarySetValue(ticket->values, key, value);
    CFDictionaryRemoveValue(ticket->creators, key);
    if (creator) CFDictionarySetValue(ticket->creators, key, creator);
    if (locked) CFDictionarySetValue(ticket->locks, key, kCFBooleanTrue);
    return noErr;
}

template <typename Number>
OSStatus SetNumber(PMTicketRef ticket, CFStringRef creator, CFStringRef key, CFNumberType type,
                   Number value, Boolean locked) {
    const auto number =
        Owned<CFNumberRef>::Adopt(CFNumberCreate(kCFAllocatorDefault, type, &value));
    return Set(ticket, creator, key, number.get(), locked);
}

void CopyEntry(const void* key, const void* value, void* target) {
    CFDictionarySetValue(static_cast<CFMutableDictionaryRef>(target), key, value);
}

void ReplaceEntries(CFMutableDictionaryRef dictionary, CFDictionaryRef entries) {
    CFDictionaryRemoveAllValues(dictionary);
    if (entries) CFDictionaryApplyFunction(entries, CopyEntry, dictionary);
}

}  // namespace

PMTicketRef PMTicketCreate() {
    // Numbers only grow, so that the number of a disposed ticket finds nothing.
    static PMTicketRef last = kPMNoTicket;
    do ++last;
    while (last == kPMNoTicket || FindTicket(last));
    Tickets().try_emplace(last);
    return last;
}

void PMTicketDispose(PMTicketRef ticket) { Tickets().erase(ticket); }

OSStatus PMTicketGetCFString(PMTicketRef ticket, CFStringRef key, CFStringRef* value) {
    return Get(ticket, key, Is<CFStringGetTypeID>, value);
}

OSStatus PMTicketGetCFBoolean(PMTicketRef ticket, CFStringRef key, CFBooleanRef* value) {
    return Get(ticket, key, Is<CFBooleanGetTypeID>, value);
}

OSStatus PMTicketGetCFNumber(PMTicketRef ticket, CFStringRef key, CFNumberRef* value) {
    return Get(ticket, key, Is<CFNumberGetTypeID>, value);
}

OSStatus PMTicketGetCFArray(PMTicketRef ticket, CFStringRef key, CFArrayRef* value) {
    return Get(ticket, key, Is<CFArrayGetTypeID>, value);
}

OSStatus PMTicketGetCFDictionary(PMTicketRef ticket, CFStringRef key, CFDictionaryRef* value) {
    return Get(ticket, key, Is<CFDictionaryGetTypeID>, value);
}

OSStatus PMTicketGetItem(PMTicketRef ticket, CFStringRef key, CFTypeRef* value) {
    return Get(ticket, key, IsAnything, value);
}

OSStatus PMTicketGetSInt32(PMTicketRef ticket, CFStringRef key, SInt32* value) {
    CFNumberRef number = nullptr;
    if (const OSStatus status = PMTicketGetCFNumber(ticket, key, &number); status != noErr) {
        return status;
    }
    SInt32 exact = 0;
    if (!CFNumberGetValue(number, kCFNumberSInt32Type, &exact)) return kPMKeyNotFound;
    if (!value) return paramErr;
    *value = exact;
    return noErr;
}

Boolean PMTicketContainsItem(PMTicketRef number, CFStringRef key) {
    const Ticket* ticket = FindTicket(number);
    return ticket && CFDictionaryGetValue(ticket->values, key) != nullptr;
}

CFStringRef PMTicketGetItemCreator(PMTicketRef number, CFStringRef key) {
    const Ticket* ticket = FindTicket(number);
    return ticket ? static_cast<CFStringRef>(CFDictionaryGetValue(ticket->creators, key)) : nullptr;
}

OSStatus PMTicketSetCFString(PMTicketRef ticket, CFStringRef creator, CFStringRef key,
                             CFStringRef value, Boolean locked) {
    return Set(ticket, creator, key, value, locked);
}

OSStatus PMTicketSetCFBoolean(PMTicketRef ticket, CFStringRef creator, CFStringRef key,
                              CFBooleanRef value, Boolean locked) {
    return Set(ticket, creator, key, value, locked);
}

OSStatus PMTicketSetCFNumber(PMTicketRef ticket, CFStringRef creator, CFStringRef key,
                             CFNumberRef value, Boolean locked) {
    return Set(ticket, creator, key, value, locked);
}

OSStatus PMTicketSetCFArray(PMTicketRef ticket, CFStringRef creator, CFStringRef key,
                            CFArrayRef value, Boolean locked) {
    return Set(ticket, creator, key, value, locked);
}

OSStatus PMTicketSetCFDictionary(PMTicketRef ticket, CFStringRef creator, CFStringRef key,
                                 CFDictionaryRef value, Boolean locked) {
    Owned<CFDictionaryRef> copy;
    if (value) copy = Owned<CFDictionaryRef>::Adopt(CFDictionaryCreateCopy(nullptr, value));
    return Set(ticket, creator, key, copy.get(), locked);
}

OSStatus PMTicketSetCFIndex(PMTicketRef ticket, CFStringRef creator, CFStringRef key, CFIndex value,
                            Boolean locked) {
    return SetNumber(ticket, creator, key, kCFNumberCFIndexType, value, locked);
}

OSStatus PMTicketSetSInt32(PMTicketRef ticket, CFStringRef creator, CFStringRef key, SInt32 value,
                           Boolean locked) {
    return SetNumber(ticket, creator, key, kCFNumberSInt32Type, value, locked);
}

OSStatus PMTicketSetItem(PMTicketRef ticket, CFStringRef creator, CFStringRef key, CFTypeRef value,
                         Boolean locked) {
    return Set(ticket, creator, key, value, locked);
}

OSStatus PMTicketReleaseItem(PMTicketRef number, CFStringRef key) {
    Ticket* ticket = FindTicket(number);
    if (!ticket) return kPMInvalidTicket;
    if (!CFDictionaryGetValue(ticket->values, key)) return kPMKeyNotFound;
    if (CFDictionaryContainsKey(ticket->locks, key)) return kPMItemIsLocked;
    CFDictionaryRemoveValue(ticket->values, key);
    CFDictionaryRemoveValue(ticket->creators, key);
    return noErr;
}

OSStatus PMTicketGetPPDDict(PMTicketRef number, CFMutableDictionaryRef* dictionary) {
    Ticket* ticket = FindTicket(number);
    if (!ticket) return kPMInvalidTicket;
    if (!dictionary) return paramErr;
    if (!ticket->ppdChoices) ticket->ppdChoices = EmptyDictionary();
    *dictionary = ticket->ppdChoices;
    return noErr;
}

CFDictionaryRef PMTicketCopyItems(PMTicketRef number) {
    const Ticket* ticket = FindTicket(number);
    return ticket ? CFDictionaryCreateCopy(kCFAllocatorDefault, ticket->values) : nullptr;
}

void TicketReplaceItems(PMTicketRef number, CFDictionaryRef items) {
    Ticket* ticket = FindTicket(number);
    if (!ticket) return;
    CFDictionaryRemoveAllValues(ticket->creators);
    CFDictionaryRemoveAllValues(ticket->locks);
    ReplaceEntries(ticket->values, items);
}

void TicketReplacePPDChoices(PMTicketRef ticket, CFDictionaryRef choices) {
    CFMutableDictionaryRef own = nullptr;
    if (PMTicketGetPPDDict(ticket, &own) == noErr) ReplaceEntries(own, choices);
}
