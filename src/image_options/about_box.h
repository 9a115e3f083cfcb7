// The About box: which printer, which version, whose trademarks.
#pragma once

#include "foundation/bundle.h"

namespace kalmo {

/// Shows it until it is closed: kModalCancel, or the failure of the interface file. The printer is
/// that of the running dialog; without its make and model the box leaves the line out, and standard
/// error says so.
SInt32 RunModalAboutDialog(CFBundleRef bundle);

}  // namespace kalmo
