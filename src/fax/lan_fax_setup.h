// The dialog that sets a fax up: its recipients, its cover sheet, how it is sent.
#pragma once

#include "fax/fax_recipient_list.h"
#include "foundation/bundle.h"

namespace kalmo {

/// Edits the caller's options and recipients in place; as they were unless kModalOK. kModalCancel,
/// or the failure of the interface file.
SInt32 RunModalLANFaxSetup(CFBundleRef bundle, CFMutableDictionaryRef options,
                           FaxRecipientList* recipients);

}  // namespace kalmo
