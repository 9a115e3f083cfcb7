// Unicode strings. Lengths, positions and characters are UTF-16 units.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "foundation/object.h"

struct CFRange {
    CFIndex location;
    CFIndex length;
};

using CFStringEncoding = UInt32;
inline constexpr CFStringEncoding kCFStringEncodingMacRoman = 0;
inline constexpr CFStringEncoding kCFStringEncodingISOLatin1 = 0x0201;
inline constexpr CFStringEncoding kCFStringEncodingISOLatin2 = 0x0202;
inline constexpr CFStringEncoding kCFStringEncodingISOLatin5 = 0x0209;
inline constexpr CFStringEncoding kCFStringEncodingASCII = 0x0600;
inline constexpr CFStringEncoding kCFStringEncodingShiftJIS = 0x0A01;
inline constexpr CFStringEncoding kCFStringEncodingUTF8 = 0x08000100;

enum CFComparisonResult : SInt32 {
    kCFCompareLessThan = -1,
    kCFCompareEqualTo = 0,
    kCFCompareGreaterThan = 1
};
using CFStringCompareFlags = UInt32;
inline constexpr CFStringCompareFlags kCFCompareCaseInsensitive = 1;
/// Search from the end.
inline constexpr CFStringCompareFlags kCFCompareBackwards = 4;
/// Match only at the start (or, with backwards, at the end).
inline constexpr CFStringCompareFlags kCFCompareAnchored = 8;

#pragma GCC visibility push(default)

[[nodiscard]] CFTypeID CFStringGetTypeID();

/// Null when the bytes are not text of that encoding; the text is copied.
[[nodiscard]] CFStringRef CFStringCreateWithCString(CFAllocatorRef, const char* text,
                                                    CFStringEncoding encoding);
[[nodiscard]] CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8* bytes, CFIndex count,
                                                  CFStringEncoding encoding,
                                                  Boolean hasByteOrderMark);
[[nodiscard]] CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* characters,
                                                       CFIndex count);
/// Placeholders: %@ any value, %d 32-bit, %ld CFIndex, %%, each also with a position (%2$@). A
/// placeholder without an argument of its kind comes out as it stands; extra arguments are ignored.
/// `arguments` are strings and numbers in order. Formats from tables never reach printf.
[[nodiscard]] CFStringRef CFStringCreateWithFormatAndValues(CFAllocatorRef, CFStringRef format,
                                                            const CFTypeRef* arguments,
                                                            CFIndex count);
[[nodiscard]] CFStringRef CFStringCreateCopy(CFAllocatorRef, CFStringRef string);
[[nodiscard]] CFMutableStringRef CFStringCreateMutable(CFAllocatorRef, CFIndex capacity);
[[nodiscard]] CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef, CFIndex capacity,
                                                           CFStringRef string);
[[nodiscard]] CFStringRef CFStringCreateWithSubstring(CFAllocatorRef, CFStringRef string,
                                                      CFRange range);
/// Every element of `strings` that is a string, with `separator` between.
[[nodiscard]] CFStringRef CFStringCreateByCombiningStrings(CFAllocatorRef, CFArrayRef strings,
                                                           CFStringRef separator);

void CFStringAppend(CFMutableStringRef string, CFStringRef tail);
/// Removes `trimmed` from both ends as often as it stands there.
void CFStringTrim(CFMutableStringRef string, CFStringRef trimmed);

[[nodiscard]] CFIndex CFStringGetLength(CFStringRef string);
/// 0 outside the string.
[[nodiscard]] UniChar CFStringGetCharacterAtIndex(CFStringRef string, CFIndex index);
/// The caller's buffer holds at least `range.length` units; the range lies in the string.
void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar* buffer);
/// False, with an empty buffer, when the text with its end does not fit or has no form in
/// `encoding`.
Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex size,
                           CFStringEncoding encoding);
[[nodiscard]] CFComparisonResult CFStringCompare(CFStringRef left, CFStringRef right,
                                                 CFStringCompareFlags flags);
/// True, and where, when `sought` (not empty) stands in `string`. `found` may be null.
Boolean CFStringFindWithOptions(CFStringRef string, CFStringRef sought, CFRange within,
                                CFStringCompareFlags flags, CFRange* found);
[[nodiscard]] Boolean CFStringHasPrefix(CFStringRef string, CFStringRef prefix);

/// A constant: made once per text, alive for ever, its text copied. Use CFSTR.
[[nodiscard]] CFStringRef CFStringMakeConstant(const char* utf8);

/// UTF-8 of any string, for host code and messages; empty for null.
[[nodiscard]] std::string CFStringToUTF8(CFStringRef string);
/// Never null: invalid bytes become U+FFFD. The caller releases it.
[[nodiscard]] CFStringRef CFStringCreateFromUTF8(std::string_view utf8);

#pragma GCC visibility pop

#define CFSTR(text)                                                     \
    ([]() -> CFStringRef {                                              \
        static const CFStringRef constant = CFStringMakeConstant(text); \
        return constant;                                                \
    }())

template <typename... Values>
[[nodiscard]] CFStringRef CFStringCreateWithFormat(CFAllocatorRef allocator, CFStringRef format,
                                                   Values... values) {
    const CFTypeRef arguments[] = {values..., nullptr};
    return CFStringCreateWithFormatAndValues(allocator, format, arguments, sizeof...(values));
}
