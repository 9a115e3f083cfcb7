// Whether the fax setup asks before a recipient comes twice, and before recipients are removed.
#pragma once

#include "foundation/bundle.h"

namespace kalmo {

/// The flags, 0 or 1, change only on OK. kModalOK, kModalCancel or the failure of the interface
/// file.
SInt32 RunModalFaxPreferencesDialog(CFBundleRef bundle, SInt32* promptDuplicate,
                                    SInt32* promptRemove);

}  // namespace kalmo
