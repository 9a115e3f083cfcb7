// Points and rectangles of a page (pt = 1/72 inch, y upwards), and 16.16 fixed-point numbers.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "kalmo/types.h"

using CGFloat = double;

struct CGPoint {
    CGFloat x = 0, y = 0;
};
struct CGSize {
    CGFloat width = 0, height = 0;
};
/// The origin is the lower left corner.
struct CGRect {
    CGPoint origin;
    CGSize size;
};

[[nodiscard]] constexpr CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return {{x, y}, {width, height}};
}
[[nodiscard]] constexpr CGFloat CGRectGetMidX(const CGRect& rect) {
    return rect.origin.x + rect.size.width / 2;
}
[[nodiscard]] constexpr CGFloat CGRectGetMidY(const CGRect& rect) {
    return rect.origin.y + rect.size.height / 2;
}

/// A signed number in units of 1/65536.
using Fixed = SInt32;
inline constexpr Fixed kFixedOne = 1 << 16;

/// Rounded to the nearest; what does not fit gives the nearest end of the range, no number gives 0.
[[nodiscard]] inline Fixed FloatToFixed(double value) {
    if (std::isnan(value)) return 0;
    constexpr double kLeast = std::numeric_limits<Fixed>::min();
    constexpr double kGreatest = std::numeric_limits<Fixed>::max();
    return static_cast<Fixed>(std::clamp(std::round(value * kFixedOne), kLeast, kGreatest));
}
[[nodiscard]] constexpr double FixedToFloat(Fixed value) {
    return static_cast<double>(value) / kFixedOne;
}
[[nodiscard]] inline Fixed IntToFixed(SInt32 value) { return FloatToFixed(value); }
/// Sum and difference stay within the range instead of wrapping round.
[[nodiscard]] constexpr Fixed FixedAdd(Fixed left, Fixed right) {
    constexpr SInt64 kLeast = std::numeric_limits<Fixed>::min();
    constexpr SInt64 kGreatest = std::numeric_limits<Fixed>::max();
    return static_cast<Fixed>(std::clamp(SInt64{left} + right, kLeast, kGreatest));
}
