#include "foundation/number.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <functional>
#include <iterator>
#include <limits>

#include "foundation/number_private.h"

namespace {

using kalmo::foundation::As;
using kalmo::foundation::Object;

const CFNumberObject* Number(const Object* object) {
    return static_cast<const CFNumberObject*>(object);
}

/// 2^63, the first real beyond the integers.
constexpr double kIntegerEnd = 9223372036854775808.0;

bool IsWhole(double real) {
    return real >= -kIntegerEnd && real < kIntegerEnd && std::trunc(real) == real;
}

bool EqualNumbers(const Object* left, const Object* right) {
    const CFNumberObject* const a = Number(left);
    const CFNumberObject* const b = Number(right);
    if (a->isReal() && b->isReal()) return a->real == b->real;
    if (!a->isReal() && !b->isReal()) return a->integer == b->integer;
    const double real = a->isReal() ? a->real : b->real;
    return IsWhole(real) && static_cast<SInt64>(real) == (a->isReal() ? b->integer : a->integer);
}

std::size_t HashNumber(const Object* value) {
    const CFNumberObject* const number = Number(value);
    if (!number->isReal()) return std::hash<SInt64>{}(number->integer);
    return IsWhole(number->real) ? std::hash<SInt64>{}(static_cast<SInt64>(number->real))
                                 : std::hash<double>{}(number->real);
}

std::string DescribeNumber(const Object* value) {
    const CFNumberObject* const number = Number(value);
    if (!number->isReal()) return std::to_string(number->integer);
    // The fewest digits that tell the value, and a point in every locale.
    char text[32];
    const auto written = std::to_chars(text, std::end(text), number->real);
    return {text, written.ptr};
}

template <typename Integer>
bool StoreInteger(const CFNumberObject& number, void* out) {
    using Limits = std::numeric_limits<Integer>;
    Integer stored = 0;
    bool exact = true;
    if (!number.isReal()) {
        stored = static_cast<Integer>(number.integer);
        exact = stored == number.integer;
        if (!exact) stored = number.integer < 0 ? Limits::min() : Limits::max();
    } else if (std::isnan(number.real)) {
        exact = false;
    } else if (number.real < static_cast<double>(Limits::min())) {
        stored = Limits::min();
        exact = false;
    } else if (number.real >= static_cast<double>(Limits::max()) + 1.0) {
        stored = Limits::max();
        exact = false;
    } else {
        stored = static_cast<Integer>(number.real);
        exact = std::trunc(number.real) == number.real;
    }
    std::memcpy(out, &stored, sizeof stored);
    return exact;
}

template <typename Real>
bool StoreReal(const CFNumberObject& number, void* out) {
    const Real stored =
        number.isReal() ? static_cast<Real>(number.real) : static_cast<Real>(number.integer);
    std::memcpy(out, &stored, sizeof stored);
    if (number.isReal())
        return std::isnan(number.real) || static_cast<double>(stored) == number.real;
    const auto wide = static_cast<double>(stored);
    return IsWhole(wide) && static_cast<SInt64>(wide) == number.integer;
}

template <typename Value>
Value Loaded(const void* from) {
    Value value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

}  // namespace

const kalmo::foundation::TypeRecord kalmo::foundation::kNumberType{"number", EqualNumbers,
                                                                   HashNumber, DescribeNumber};
const kalmo::foundation::TypeRecord kalmo::foundation::kBooleanType{
    "boolean", nullptr, nullptr, [](const Object* value) {
        return std::string(static_cast<const CFBooleanObject*>(value)->value ? "true" : "false");
    }};

using kalmo::foundation::kBooleanType;
using kalmo::foundation::kNumberType;

CFTypeID CFNumberGetTypeID() { return kalmo::foundation::IdOf(kNumberType); }
CFTypeID CFBooleanGetTypeID() { return kalmo::foundation::IdOf(kBooleanType); }

CFNumberRef CFNumberCreate(CFAllocatorRef, CFNumberType type, const void* value) {
    if (!value) return nullptr;
    switch (type) {
        case kCFNumberSInt8Type:
            return new CFNumberObject(type, SInt64{Loaded<std::int8_t>(value)});
        case kCFNumberSInt16Type:
            return new CFNumberObject(type, SInt64{Loaded<SInt16>(value)});
        case kCFNumberSInt32Type:
            return new CFNumberObject(type, SInt64{Loaded<SInt32>(value)});
        case kCFNumberSInt64Type:
        case kCFNumberCFIndexType:
            return new CFNumberObject(type, Loaded<SInt64>(value));
        case kCFNumberFloat32Type:
            return new CFNumberObject(type, double{Loaded<float>(value)});
        case kCFNumberFloat64Type:
            return new CFNumberObject(type, Loaded<double>(value));
    }
    return nullptr;
}

CFNumberType CFNumberGetType(CFNumberRef number) {
    const auto* const found = As<CFNumberObject>(number, kNumberType);
    return found ? found->kind : kCFNumberSInt32Type;
}

Boolean CFNumberIsFloatType(CFNumberRef number) {
    const auto* const found = As<CFNumberObject>(number, kNumberType);
    return found && found->isReal();
}

Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value) {
    const auto* const found = As<CFNumberObject>(number, kNumberType);
    if (!found || !value) return false;
    switch (type) {
        case kCFNumberSInt8Type:
            return StoreInteger<std::int8_t>(*found, value);
        case kCFNumberSInt16Type:
            return StoreInteger<SInt16>(*found, value);
        case kCFNumberSInt32Type:
            return StoreInteger<SInt32>(*found, value);
        case kCFNumberSInt64Type:
        case kCFNumberCFIndexType:
            return StoreInteger<SInt64>(*found, value);
        case kCFNumberFloat32Type:
            return StoreReal<float>(*found, value);
        case kCFNumberFloat64Type:
            return StoreReal<double>(*found, value);
    }
    return false;
}

namespace {

CFBooleanObject* MakeBoolean(bool value) {
    auto* const boolean = new CFBooleanObject(value);
    boolean->makeImmortal();
    return boolean;
}

}  // namespace

CFBooleanRef CFBooleanTrue() {
    static const CFBooleanRef value = MakeBoolean(true);
    return value;
}

CFBooleanRef CFBooleanFalse() {
    static const CFBooleanRef value = MakeBoolean(false);
    return value;
}

Boolean CFBooleanGetValue(CFBooleanRef boolean) {
    const auto* const found = As<CFBooleanObject>(boolean, kBooleanType);
    return found && found->value;
}
