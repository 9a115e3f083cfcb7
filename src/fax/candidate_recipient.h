// A person's telephone entry as the recipient of a fax.
#pragma once

#include "contacts/person.h"
#include "fax/fax_recipient.h"
#include "foundation/bundle.h"

namespace kalmo {

/// Counts 1: the caller releases it. Fields that the person does not have are null.
[[nodiscard]] FaxRecipient* CreateRecipientFromEntry(CFBundleRef bundle,
                                                     const contacts::Person& person,
                                                     const contacts::Entry& entry);

}  // namespace kalmo
