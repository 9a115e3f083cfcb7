// The number and boolean objects. Private to the platform library.
#pragma once

#include "foundation/number.h"
#include "foundation/object_private.h"

namespace kalmo::foundation {

extern const TypeRecord kNumberType;
extern const TypeRecord kBooleanType;

}  // namespace kalmo::foundation

struct CFNumberObject final : kalmo::foundation::Object {
    CFNumberObject(CFNumberType keptAs, SInt64 value)
        : Object(kalmo::foundation::kNumberType), kind(keptAs), integer(value) {}
    CFNumberObject(CFNumberType keptAs, double value)
        : Object(kalmo::foundation::kNumberType), kind(keptAs), real(value) {}
    [[nodiscard]] bool isReal() const {
        return kind == kCFNumberFloat32Type || kind == kCFNumberFloat64Type;
    }

    CFNumberType kind;
    SInt64 integer = 0;
    double real = 0;
};

struct CFBooleanObject final : kalmo::foundation::Object {
    explicit CFBooleanObject(bool truth) : Object(kalmo::foundation::kBooleanType), value(truth) {}
    bool value;
};
