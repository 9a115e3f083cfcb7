// The clock on the wall: date and time as seconds since the start of 1904, local time.
//
// That scale knows no time zone and no leap second: a day has 86,400 seconds, so that arithmetic on
// it is arithmetic on the calendar.
#pragma once

#include <optional>

#include "kalmo/types.h"

/// Gregorian; month and day from 1.
struct LongDateFields {
    SInt32 year = 1904, month = 1, day = 1, hour = 0, minute = 0, second = 0;
};

#pragma GCC visibility push(default)

[[nodiscard]] SInt64 GetLongDateTime();
/// Until taken away by nothing, this is now.
void SetNowForTests(std::optional<SInt64> now);
/// Any seconds: years far from now are held at -4,712 and 30,081.
[[nodiscard]] LongDateFields LongSecondsToDate(SInt64 seconds);
/// Fields out of their range carry over.
[[nodiscard]] SInt64 LongDateToSeconds(const LongDateFields& date);

#pragma GCC visibility pop
