// The dialog for what the cover sheet shows.
#pragma once

#include "fax/fax_recipient_list.h"
#include "foundation/bundle.h"

namespace kalmo {

/// Changes `options` in place; as they were unless kModalOK. `imageIndex` is the chosen item of the
/// cover image menu, 1 for none. `notes` may be null.
SInt32 RunModalCoverSheetSetupDialog(CFBundleRef bundle, const FaxRecipientList* list,
                                     CFMutableDictionaryRef options, CFStringRef notes,
                                     SInt32* imageIndex);

}  // namespace kalmo
