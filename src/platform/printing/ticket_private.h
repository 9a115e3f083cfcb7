// What the ticket file does to a whole ticket at once.
#pragma once

#include "printing/ticket.h"

/// Every item goes, locked ones too, and `items` (may be null) come in, unlocked and without a
/// creator. Nothing happens without such a ticket.
void TicketReplaceItems(PMTicketRef ticket, CFDictionaryRef items);
/// The same for the entries of the PPD dictionary, which stays the same dictionary for its holders.
void TicketReplacePPDChoices(PMTicketRef ticket, CFDictionaryRef choices);
