// Universally unique identifiers.
#pragma once

#include "foundation/string.h"
#include "kalmo/pde.h"

#pragma GCC visibility push(default)

[[nodiscard]] CFTypeID CFUUIDGetTypeID();
/// From "BDB091F4-E57F-11D3-B5CC-0050E4603277" in either case; null for anything else.
[[nodiscard]] CFUUIDRef CFUUIDCreateFromString(CFAllocatorRef, CFStringRef text);
[[nodiscard]] CFUUIDRef CFUUIDCreateFromUUIDBytes(CFAllocatorRef, CFUUIDBytes bytes);
/// The sixteen bytes in reading order.
[[nodiscard]] CFUUIDBytes CFUUIDGetUUIDBytes(CFUUIDRef uuid);
/// Upper case. The caller releases it.
[[nodiscard]] CFStringRef CFUUIDCreateString(CFAllocatorRef, CFUUIDRef uuid);
/// One object per identifier, alive for ever; not to be released.
[[nodiscard]] CFUUIDRef CFUUIDGetConstantUUIDWithBytes(CFAllocatorRef, CFUUIDBytes bytes);

#pragma GCC visibility pop
