// Texts by key, in the user's language.
#pragma once

#include "foundation/bundle.h"

namespace kalmo {

/// What stands where a key has no text.
inline constexpr char kStringNotFound[] = "STRING NOT FOUND";

/// The text of `key` in TABLE.strings of the bundle ("Localizable" when `table` is null);
/// "STRING NOT FOUND", and one line on standard error naming table and key, otherwise. Never null.
[[nodiscard]] Owned<CFStringRef> CopyText(CFBundleRef bundle, CFStringRef key,
                                          CFStringRef table = nullptr);
/// The same, null when there is none and without a line.
[[nodiscard]] Owned<CFStringRef> CopyTextIfPresent(CFBundleRef bundle, CFStringRef key,
                                                   CFStringRef table = nullptr);

/// A text from outside as a line to be shown: no longer than `most`, then an ellipsis, and with
/// blanks for control characters and for marks that turn the direction of writing. Never null.
[[nodiscard]] Owned<CFStringRef> CopyShortened(CFStringRef text, CFIndex most);

/// Texts that are said one after another; those that are empty or null are left out.
class TextParts final {
public:
    void add(CFStringRef text);
    /// The caller releases it.
    [[nodiscard]] CFStringRef joined(CFStringRef separator) const;

private:
    Owned<CFMutableArrayRef> parts_ = Owned<CFMutableArrayRef>::Adopt(
        CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks));
};

}  // namespace kalmo
