// Numbers and measures in the user's locale.
#pragma once

#include <optional>

#include "foundation/string.h"

#pragma GCC visibility push(default)

/// The decimal separator of LC_ALL / LC_NUMERIC / LANG, such as "," in German. The caller releases
/// it.
[[nodiscard]] CFStringRef CFLocaleCopyDecimalSeparator();
/// In the user's locale, without grouping, with at least and at most so many fraction digits.
[[nodiscard]] CFStringRef CFLocaleCreateStringFromNumber(double value, int minimumFractionDigits,
                                                         int maximumFractionDigits);
/// The whole text as a number of the user's locale; nothing when it is not one.
[[nodiscard]] std::optional<double> CFLocaleNumberFromString(CFStringRef text);
/// Whether LC_ALL / LC_MEASUREMENT / LANG names a place that measures paper in millimetres.
[[nodiscard]] bool CFLocaleUsesMetricSystem();

#pragma GCC visibility pop
