// Arrays, dictionaries, data blocks and dates.
#pragma once

#include "foundation/object.h"
#include "foundation/string.h"

/// How an array or dictionary keeps its elements; any member may be null (then nothing is called,
/// and equality is that of addresses).
struct CFArrayCallBacks {
    CFIndex version;
    const void* (*retain)(CFAllocatorRef, const void* element);
    void (*release)(CFAllocatorRef, const void* element);
    CFStringRef (*copyDescription)(const void* element);
    Boolean (*equal)(const void* left, const void* right);
};

using CFComparatorFunction = CFComparisonResult (*)(const void* left, const void* right,
                                                    void* context);
using CFDictionaryApplierFunction = void (*)(const void* key, const void* value, void* context);

#pragma GCC visibility push(default)

/// Elements are counted values.
extern const CFArrayCallBacks kCFTypeArrayCallBacks;

[[nodiscard]] CFTypeID CFArrayGetTypeID();
/// `callbacks` null: elements are kept as bare addresses. The callbacks are copied.
[[nodiscard]] CFArrayRef CFArrayCreate(CFAllocatorRef, const void** elements, CFIndex count,
                                       const CFArrayCallBacks* callbacks);
[[nodiscard]] CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef, CFIndex capacity,
                                                     const CFArrayCallBacks* callbacks);
[[nodiscard]] CFArrayRef CFArrayCreateCopy(CFAllocatorRef, CFArrayRef array);
[[nodiscard]] CFMutableArrayRef CFArrayCreateMutableCopy(CFAllocatorRef, CFIndex capacity,
                                                         CFArrayRef array);
/// 0 for null.
[[nodiscard]] CFIndex CFArrayGetCount(CFArrayRef array);
/// Borrowed; null outside the array.
[[nodiscard]] const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);
/// kCFNotFound (-1) when no element of the range equals.
[[nodiscard]] CFIndex CFArrayGetFirstIndexOfValue(CFArrayRef array, CFRange range,
                                                  const void* value);
[[nodiscard]] Boolean CFArrayContainsValue(CFArrayRef array, CFRange range, const void* value);
void CFArrayAppendValue(CFMutableArrayRef array, const void* value);
void CFArrayInsertValueAtIndex(CFMutableArrayRef array, CFIndex index, const void* value);
void CFArraySetValueAtIndex(CFMutableArrayRef array, CFIndex index, const void* value);
void CFArrayRemoveValueAtIndex(CFMutableArrayRef array, CFIndex index);
void CFArrayRemoveAllValues(CFMutableArrayRef array);
void CFArraySortValues(CFMutableArrayRef array, CFRange range, CFComparatorFunction comparator,
                       void* context);

[[nodiscard]] CFTypeID CFDictionaryGetTypeID();
/// Keys and values are counted values; keys compare with CFEqual. Iteration keeps the order in
/// which keys were first set.
[[nodiscard]] CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef, CFIndex capacity);
[[nodiscard]] CFDictionaryRef CFDictionaryCreateCopy(CFAllocatorRef, CFDictionaryRef dictionary);
[[nodiscard]] CFMutableDictionaryRef CFDictionaryCreateMutableCopy(CFAllocatorRef, CFIndex capacity,
                                                                   CFDictionaryRef dictionary);
/// 0 for null.
[[nodiscard]] CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary);
/// Borrowed; null when absent, also for a null dictionary or key.
[[nodiscard]] CFTypeRef CFDictionaryGetValue(CFDictionaryRef dictionary, CFTypeRef key);
[[nodiscard]] Boolean CFDictionaryContainsKey(CFDictionaryRef dictionary, CFTypeRef key);
/// Room for CFDictionaryGetCount entries each; either may be null.
void CFDictionaryGetKeysAndValues(CFDictionaryRef dictionary, CFTypeRef* keys, CFTypeRef* values);
void CFDictionaryApplyFunction(CFDictionaryRef dictionary, CFDictionaryApplierFunction applier,
                               void* context);
/// Does nothing on null arguments or on an immutable dictionary.
void CFDictionarySetValue(CFMutableDictionaryRef dictionary, CFTypeRef key, CFTypeRef value);
void CFDictionaryRemoveValue(CFMutableDictionaryRef dictionary, CFTypeRef key);
void CFDictionaryRemoveAllValues(CFMutableDictionaryRef dictionary);
/// Whether values may be set; a dictionary read with mutable containers answers true.
[[nodiscard]] Boolean CFDictionaryIsMutable(CFDictionaryRef dictionary);

[[nodiscard]] CFTypeID CFDataGetTypeID();
[[nodiscard]] CFDataRef CFDataCreate(CFAllocatorRef, const UInt8* bytes, CFIndex length);
[[nodiscard]] CFMutableDataRef CFDataCreateMutable(CFAllocatorRef, CFIndex capacity);
/// 0 for null.
[[nodiscard]] CFIndex CFDataGetLength(CFDataRef data);
[[nodiscard]] const UInt8* CFDataGetBytePtr(CFDataRef data);
void CFDataAppendBytes(CFMutableDataRef data, const UInt8* bytes, CFIndex length);

[[nodiscard]] CFTypeID CFDateGetTypeID();
/// Seconds since 2001-01-01 00:00:00 UTC.
[[nodiscard]] CFDateRef CFDateCreate(CFAllocatorRef, double seconds);
[[nodiscard]] double CFDateGetAbsoluteTime(CFDateRef date);

#pragma GCC visibility pop

inline constexpr CFIndex kCFNotFound = -1;
