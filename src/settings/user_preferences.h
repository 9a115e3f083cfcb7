// Property lists in the user's Preferences folder.
#pragma once

#include "foundation/collections.h"
#include "foundation/url.h"

namespace kalmo {

/// File `name` in the subfolder "Kalmo", which is made when missing. Null without a Preferences
/// folder. The caller releases it.
[[nodiscard]] CFURLRef CopyPreferenceFileURL(CFStringRef name);
/// The mutable dictionary in the file, or an empty one. Never null. The caller releases it.
[[nodiscard]] CFMutableDictionaryRef CopyUserPreferences(CFStringRef name);
/// On failure false, and one line with the platform error on standard error.
bool WriteUserPreferences(CFStringRef name, CFDictionaryRef preferences);

}  // namespace kalmo
