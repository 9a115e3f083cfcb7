// A small dialog that asks for one text.
#pragma once

#include "foundation/bundle.h"
#include "kalmo/statuses.h"

namespace kalmo {

inline constexpr SInt32 kCustomValueOK = 1;
inline constexpr SInt32 kCustomValueCancel = 2;

/// What the dialog asks for, by key; null: a value.
struct CustomValueTexts {
    CFStringRef titleKey = nullptr, labelKey = nullptr;
};

/// `*text` is shown at first (may be null), not consumed. On OK `*button` is 1 and `*text` a new
/// reference; on Cancel 2 and null. The failure of the interface file, with nothing changed.
OSStatus RunModalCustomValueDialog(CFBundleRef bundle, SInt32 minimumLength, SInt32 maximumLength,
                                   CFStringRef* text, SInt32* button,
                                   const CustomValueTexts& texts = {});

}  // namespace kalmo
