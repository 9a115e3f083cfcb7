// The name under which a watermark is stored.
#pragma once

#include "foundation/bundle.h"
#include "foundation/collections.h"

namespace kalmo {

/// Whether a watermark may be stored under the name: the user is told of one that the store needs
/// itself, and asked before one of `taken` (strings; may be null) is replaced.
[[nodiscard]] bool MayNameWatermark(CFBundleRef bundle, CFArrayRef taken, CFStringRef name);

/// A name as it is shown within a sentence: on one line, and not too long.
[[nodiscard]] Owned<CFStringRef> CopyShownName(CFStringRef name);
/// The format with the name so shown.
[[nodiscard]] Owned<CFStringRef> CopySentence(CFStringRef format, CFStringRef name);

}  // namespace kalmo
