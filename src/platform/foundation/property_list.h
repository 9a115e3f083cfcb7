// Property lists in XML: strings, numbers, booleans, dates, data, arrays, dictionaries.
//
// Types are kept exactly: an integer, a real and a boolean stay what they are.
#pragma once

#include <cstddef>

#include "foundation/collections.h"
#include "foundation/number.h"
#include "foundation/string.h"

enum CFPropertyListMutability : UInt32 {
    kCFPropertyListImmutable = 0,
    kCFPropertyListMutableContainers = 1,
    kCFPropertyListMutableContainersAndLeaves = 2,
};

/// What is refused before or while reading.
inline constexpr std::size_t kPropertyListMaximumBytes = 64u << 20;
inline constexpr int kPropertyListMaximumDepth = 512;

#pragma GCC visibility push(default)

/// Null with a one-line reason in `*error` (released by the caller; `error` may be null) when the
/// bytes are no XML property list, are cut short, too large or nested too deeply, or when a number,
/// a date or data in it are none.
[[nodiscard]] CFPropertyListRef CFPropertyListCreateFromXMLData(CFAllocatorRef, CFDataRef data,
                                                                CFPropertyListMutability mutability,
                                                                CFStringRef* error);
/// Null for a value that a property list cannot hold, a date outside 1933 to 2068, or one nested
/// too deeply or too large to be read again. Characters that XML cannot hold become U+FFFD, -0.0
/// becomes 0.0; dates lose their fractions.
[[nodiscard]] CFDataRef CFPropertyListCreateXMLData(CFAllocatorRef, CFPropertyListRef list);
[[nodiscard]] CFPropertyListRef CFPropertyListCreateDeepCopy(CFAllocatorRef, CFPropertyListRef list,
                                                             CFPropertyListMutability mutability);

#pragma GCC visibility pop
