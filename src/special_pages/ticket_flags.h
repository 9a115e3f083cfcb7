// Flags that tickets hold as numbers.
#pragma once

#include "settings/dictionary.h"

namespace kalmo {

/// Any number but zero is true; `missing` when there is no number.
[[nodiscard]] inline bool FlagInDictionary(CFDictionaryRef dictionary, CFStringRef key,
                                           bool missing) {
    const auto number =
        ValueOfType<CFNumberRef>(CFDictionaryGetValue(dictionary, key), CFNumberGetTypeID());
    if (!number) return missing;
    Float64 value = 0;
    CFNumberGetValue(number, kCFNumberFloat64Type, &value);
    return value != 0;
}

}  // namespace kalmo
