// The passcode that holds a job at the printer.
#pragma once

#include "foundation/bundle.h"
#include "foundation/string.h"

namespace kalmo {

/// `*passcode` (may be null) is shown; after kModalOK it is the new one. kModalCancel or the
/// failure of the interface file change nothing.
SInt32 RunModalSecurePrintSetup(CFBundleRef bundle, Owned<CFStringRef>* passcode);

}  // namespace kalmo
