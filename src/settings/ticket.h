// The tickets of the print session, and numbers in dictionaries stored in them.
#pragma once

#include "foundation/collections.h"
#include "foundation/number.h"
#include "printing/session.h"
#include "printing/ticket.h"

namespace kalmo {

/// Status of PMSessionGetDataFromSession; `*ticket` is left alone when nothing is stored.
OSStatus GetTicketFromSession(PMPrintSession session, CFStringRef ticketName, PMTicketRef* ticket);
/// Stores the value as a number of the platform's index kind.
void WriteTicketValue(CFMutableDictionaryRef dictionary, CFStringRef key, CFIndex value);
/// True when a number is there and was exactly a CFIndex. Absent: false, `*value` untouched; a
/// fraction is cut, and the answer false.
bool GetCFIndexFromCFDictionary(CFDictionaryRef dictionary, CFStringRef key, CFIndex* value);

}  // namespace kalmo
