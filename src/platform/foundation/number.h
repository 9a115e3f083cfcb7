// Numbers that keep the kind they were made with, and booleans, which are not numbers.
#pragma once

#include "foundation/object.h"

enum CFNumberType : CFIndex {
    kCFNumberSInt8Type = 1,
    kCFNumberSInt16Type = 2,
    kCFNumberSInt32Type = 3,
    kCFNumberSInt64Type = 4,
    kCFNumberFloat32Type = 5,
    kCFNumberFloat64Type = 6,
    kCFNumberFloatType = kCFNumberFloat32Type,
    kCFNumberDoubleType = kCFNumberFloat64Type,
    kCFNumberIntType = kCFNumberSInt32Type,
    kCFNumberCFIndexType = 14,
};

#pragma GCC visibility push(default)

[[nodiscard]] CFTypeID CFNumberGetTypeID();
[[nodiscard]] CFTypeID CFBooleanGetTypeID();
[[nodiscard]] CFNumberRef CFNumberCreate(CFAllocatorRef, CFNumberType type, const void* value);
[[nodiscard]] CFNumberType CFNumberGetType(CFNumberRef number);
[[nodiscard]] Boolean CFNumberIsFloatType(CFNumberRef number);
/// Writes the value as `type` (saturated, fractions cut) and tells whether it is exactly that
/// value. Null or something that is no number: false, `value` untouched.
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);
[[nodiscard]] CFBooleanRef CFBooleanTrue();
[[nodiscard]] CFBooleanRef CFBooleanFalse();
/// False for null and for anything that is no boolean.
[[nodiscard]] Boolean CFBooleanGetValue(CFBooleanRef boolean);

#pragma GCC visibility pop

#define kCFBooleanTrue (CFBooleanTrue())
#define kCFBooleanFalse (CFBooleanFalse())
