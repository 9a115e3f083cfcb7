// What the shell itself writes into the ticket: who prints, from which machine, for which
// controller.
#pragma once

#include "foundation/string.h"
#include "printing/ticket.h"

namespace kalmo {

/// Null where unknown.
struct ClientFacts {
    Owned<CFStringRef> user;
    Owned<CFStringRef> computer;
    Owned<CFStringRef> address;  // first of the primary IPv4 interface
};

[[nodiscard]] ClientFacts CollectClientFacts();
/// Sets or removes the shell's items; all strings unlocked, creator "K". The computer's name goes
/// only together with a user's, and only in characters U+0020 to U+00FE.
void WriteClientInformation(PMTicketRef ticket, const ClientFacts& facts);

}  // namespace kalmo
