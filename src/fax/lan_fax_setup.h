// The fax dialog.
#pragma once

#include "fax/fax_recipient_list.h"
#include "foundation/bundle.h"

namespace kalmo {

/// Not there yet: says so in a notice and answers kModalCancel.
SInt32 RunModalLANFaxSetup(CFBundleRef bundle, CFMutableDictionaryRef options,
                           FaxRecipientList* recipients);

}  // namespace kalmo
