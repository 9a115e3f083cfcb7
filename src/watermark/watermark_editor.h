// The dialog that makes and changes a watermark.
#pragma once

#include "foundation/bundle.h"
#include "foundation/collections.h"
#include "watermark/watermark_data.h"

namespace kalmo {

/// Runs the editor on the record, whose pageWidth and pageHeight are set. kModalOK: the record is
/// as the user left it, with a text (and textMode) or a picture file that could be read, under a
/// name that is not among `takenNames` (strings; may be null) unless the user agreed to replace
/// that one. Otherwise the record is as it was. Glyphs held by the record stay its own.
[[nodiscard]] SInt32 RunModalWatermarkEditor(CFBundleRef bundle, CFStringRef titleKey,
                                             CFArrayRef takenNames, _WatermarkData* record);

}  // namespace kalmo
