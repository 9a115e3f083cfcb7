// What the shell itself writes into the ticket: who prints, from which machine, for which
// controller.
#pragma once

#include "printing/ticket.h"

namespace kalmo {

/// Sets or removes the shell's items; all strings unlocked, creator "K".
void WriteClientInformation(PMTicketRef ticket);

}  // namespace kalmo
