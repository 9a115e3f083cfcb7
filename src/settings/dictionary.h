// Small helpers for dictionaries of the ticket and the device profile.
#pragma once

#include "foundation/collections.h"
#include "foundation/number.h"

namespace kalmo {

/// Stores the number `*value` of the given type under the key.
void CFDictionarySetNumber(CFMutableDictionaryRef dictionary, CFStringRef key, CFNumberType type,
                           const void* value);
/// True when a number was there and is exactly of that type.
bool CFDictionaryGetNumber(CFDictionaryRef dictionary, CFStringRef key, CFNumberType type,
                           void* value);
/// For texts with "%d" and the like.
[[nodiscard]] Owned<CFNumberRef> CreateNumber(SInt32 value);
/// The value under the key when it is of that kind, else null; borrowed.
[[nodiscard]] CFStringRef StringInDictionary(CFDictionaryRef dictionary, CFStringRef key);
[[nodiscard]] CFDictionaryRef DictionaryInDictionary(CFDictionaryRef dictionary, CFStringRef key);
[[nodiscard]] CFBooleanRef BooleanInDictionary(CFDictionaryRef dictionary, CFStringRef key);
/// Does nothing when the bytes are not text of the encoding.
void CFDictionarySetCString(CFMutableDictionaryRef dictionary, CFStringRef key, const char* text,
                            CFStringEncoding encoding);
/// The mutable dictionary under the key, created and stored when there is none; lent.
[[nodiscard]] CFMutableDictionaryRef CFDictionaryGetDictionaryOrCreate(
    CFMutableDictionaryRef dictionary, CFStringRef key);

/// Releases the reference, if any, and clears the variable.
template <typename Ref>
void CFReleaseAndNULL(Ref& reference) {
    if (reference) CFRelease(reference);
    reference = nullptr;
}

/// The value when it is of that type, else null. Borrowed.
template <typename Ref>
[[nodiscard]] Ref ValueOfType(CFTypeRef value, CFTypeID type) {
    return value && CFGetTypeID(value) == type ? static_cast<Ref>(const_cast<void*>(value))
                                               : nullptr;
}

}  // namespace kalmo
