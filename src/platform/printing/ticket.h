// Tickets: items by key, each with its creator and a lock; and the ticket's PPD dictionary.
//
// A ticket is an entry of a process-wide table named by a 32-bit number. An unknown number answers
// kPMInvalidTicket, an absent key or a value of another type kPMKeyNotFound, a locked item
// kPMItemIsLocked on writing. Out values are left alone on failure. Get lends.
#pragma once

#include "foundation/collections.h"
#include "foundation/number.h"
#include "kalmo/statuses.h"

#pragma GCC visibility push(default)

/// An empty ticket; PMTicketDispose frees it.
[[nodiscard]] PMTicketRef PMTicketCreate();
void PMTicketDispose(PMTicketRef ticket);

OSStatus PMTicketGetCFString(PMTicketRef ticket, CFStringRef key, CFStringRef* value);
OSStatus PMTicketGetCFBoolean(PMTicketRef ticket, CFStringRef key, CFBooleanRef* value);
OSStatus PMTicketGetCFNumber(PMTicketRef ticket, CFStringRef key, CFNumberRef* value);
OSStatus PMTicketGetCFArray(PMTicketRef ticket, CFStringRef key, CFArrayRef* value);
OSStatus PMTicketGetCFDictionary(PMTicketRef ticket, CFStringRef key, CFDictionaryRef* value);
/// Any kind of value.
OSStatus PMTicketGetItem(PMTicketRef ticket, CFStringRef key, CFTypeRef* value);
/// kPMKeyNotFound also when the number does not fit exactly.
OSStatus PMTicketGetSInt32(PMTicketRef ticket, CFStringRef key, SInt32* value);
[[nodiscard]] Boolean PMTicketContainsItem(PMTicketRef ticket, CFStringRef key);
/// The creator the item was last written with, lent; null when absent or unknown.
[[nodiscard]] CFStringRef PMTicketGetItemCreator(PMTicketRef ticket, CFStringRef key);

OSStatus PMTicketSetCFString(PMTicketRef ticket, CFStringRef creator, CFStringRef key,
                             CFStringRef value, Boolean locked);
OSStatus PMTicketSetCFBoolean(PMTicketRef ticket, CFStringRef creator, CFStringRef key,
                              CFBooleanRef value, Boolean locked);
OSStatus PMTicketSetCFNumber(PMTicketRef ticket, CFStringRef creator, CFStringRef key,
                             CFNumberRef value, Boolean locked);
OSStatus PMTicketSetCFArray(PMTicketRef ticket, CFStringRef creator, CFStringRef key,
                            CFArrayRef value, Boolean locked);
/// The dictionary is copied.
OSStatus PMTicketSetCFDictionary(PMTicketRef ticket, CFStringRef creator, CFStringRef key,
                                 CFDictionaryRef value, Boolean locked);
/// A number of the platform's index kind.
OSStatus PMTicketSetCFIndex(PMTicketRef ticket, CFStringRef creator, CFStringRef key, CFIndex value,
                            Boolean locked);
OSStatus PMTicketSetSInt32(PMTicketRef ticket, CFStringRef creator, CFStringRef key, SInt32 value,
                           Boolean locked);
OSStatus PMTicketSetItem(PMTicketRef ticket, CFStringRef creator, CFStringRef key, CFTypeRef value,
                         Boolean locked);
/// Removes the item; kPMKeyNotFound when it was absent.
OSStatus PMTicketReleaseItem(PMTicketRef ticket, CFStringRef key);

/// The ticket's PPD dictionary (main keyword to choice keyword), made when absent; lent, mutable.
OSStatus PMTicketGetPPDDict(PMTicketRef ticket, CFMutableDictionaryRef* dictionary);

/// All items as one dictionary (PPD dictionary left out); the caller releases it. Null: no such
/// ticket.
[[nodiscard]] CFDictionaryRef PMTicketCopyItems(PMTicketRef ticket);

#pragma GCC visibility pop

/// In the printer information ticket: the printer's make and model (string).
#define kPMMakeAndModelNameKey CFSTR("com.apple.print.PrinterInfo.PMMakeAndModelName")
