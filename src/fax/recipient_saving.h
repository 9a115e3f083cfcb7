// Recipients on their way into the address book.
#pragma once

#include "contacts/address_book.h"
#include "fax/fax_recipient_list.h"

namespace kalmo {

/// The recipient as a person of the address book: with its uid, or as one to be added. The last
/// name is not written.
[[nodiscard]] contacts::Person PersonFromRecipient(const FaxRecipient& recipient);

/// What FaxRecipientList::saveAsABGroupWithName does, and why when it fails. `group` has a name; it
/// is given its uid once it stands in the book, so that another try goes on with it. Recipients
/// that were added before a failure, or before the user stopped waiting, have their uids.
[[nodiscard]] contacts::Answer SaveAsGroup(const FaxRecipientList& list, contacts::Group& group);

}  // namespace kalmo
