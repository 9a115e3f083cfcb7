// The job's pair of covers, to and from the ticket.
#pragma once

#include <memory>

#include "kalmo/pde.h"
#include "printing/ticket.h"
#include "special_pages/special_page.h"

namespace kalmo {

/// Towards the ticket: a cover is written, an absent one removes its key. Towards the dialog: the
/// front cover from its key; the back cover from its own, but with booklet layout on it is a clone
/// of the front cover and the ticket's is passed over. `direction` is kSyncToTicket or kSyncToUI.
/// The status of the last ticket call; a missing key is no failure.
OSStatus SyncCovers(PMTicketRef ticket, Boolean direction, std::unique_ptr<Cover>* front,
                    std::unique_ptr<Cover>* back);

}  // namespace kalmo
