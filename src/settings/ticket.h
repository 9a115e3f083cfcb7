// The tickets of the print session, and what is stored in them.
#pragma once

#include <optional>

#include "foundation/collections.h"
#include "foundation/number.h"
#include "printing/session.h"
#include "printing/ticket.h"

namespace kalmo {

/// Status of PMSessionGetDataFromSession; `*ticket` is left alone when nothing is stored.
OSStatus GetTicketFromSession(PMPrintSession session, CFStringRef ticketName, PMTicketRef* ticket);
/// Lent; null when the ticket has no dictionary of that name.
[[nodiscard]] CFDictionaryRef DictionaryInTicket(PMTicketRef ticket, CFStringRef key);
/// False when the ticket has no such boolean.
[[nodiscard]] bool FlagInTicket(PMTicketRef ticket, CFStringRef key);
/// `missing` when the ticket has no such number.
[[nodiscard]] SInt32 SInt32InTicket(PMTicketRef ticket, CFStringRef key, SInt32 missing);
/// Stores the value as a number of the platform's index kind.
void WriteTicketValue(CFMutableDictionaryRef dictionary, CFStringRef key, CFIndex value);
/// True when a number is there and was exactly a CFIndex. Absent: false, `*value` untouched; a
/// fraction is cut, and the answer false.
bool GetCFIndexFromCFDictionary(CFDictionaryRef dictionary, CFStringRef key, CFIndex* value);
/// The same for a record's 32-bit field: nothing when absent, no whole number, or too large.
[[nodiscard]] std::optional<SInt32> SInt32InDictionary(CFDictionaryRef dictionary, CFStringRef key);

}  // namespace kalmo
