// Property lists in the user's Preferences folder.
#pragma once

#include "foundation/collections.h"
#include "foundation/url.h"

namespace kalmo {

/// File `name` in the subfolder "Kalmo", which is made when missing. Null without a Preferences
/// folder. The caller releases it.
[[nodiscard]] CFURLRef CopyPreferenceFileURL(CFStringRef name);
/// The list of each field's earlier inputs, by the field's key, newest first.
#define kInputHistoryFile CFSTR("com.kalmo.print.inputhistory.plist")

/// The mutable dictionary in the file; null when there is no file or no dictionary in it. The
/// caller releases it.
[[nodiscard]] CFMutableDictionaryRef CopyStoredUserPreferences(CFStringRef name);
/// The same, or an empty one. Never null.
[[nodiscard]] CFMutableDictionaryRef CopyUserPreferences(CFStringRef name);
/// On failure false, and one line with the platform error on standard error.
bool WriteUserPreferences(CFStringRef name, CFDictionaryRef preferences);

}  // namespace kalmo
