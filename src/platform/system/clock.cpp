#include "system/clock.h"

#include <algorithm>
#include <chrono>
#include <ctime>

namespace {

using std::chrono::days;
using std::chrono::floor;
using std::chrono::sys_days;

using Seconds = std::chrono::duration<SInt64>;

constexpr sys_days kEpoch{std::chrono::year{1904} / 1 / 1};
constexpr LongDateFields kFirst{.year = -4712};
constexpr LongDateFields kLast{
    .year = 30081, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 59};

std::optional<SInt64> nowForTests;

/// The calendar repeats after 400 years. Taking whole cycles out leaves years that the calendar of
/// the library has, whatever the fields hold.
SInt64 DaysBeforeMonth(SInt64 year, SInt64 month) {
    constexpr SInt64 kCycleMonths = 400 * 12, kCycleDays = 146'097;
    const SInt64 months = (year - 2000) * 12 + (month - 1);
    const SInt64 cycles = months / kCycleMonths - (months % kCycleMonths < 0 ? 1 : 0);
    const auto rest = static_cast<int>(months - cycles * kCycleMonths);
    const auto first = std::chrono::year{2000} / 1 / 1 + std::chrono::months{rest};
    return cycles * kCycleDays + (sys_days{first} - kEpoch).count();
}

}  // namespace

SInt64 GetLongDateTime() {
    if (nowForTests) return *nowForTests;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return LongDateToSeconds({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                              local.tm_min, local.tm_sec});
}

void SetNowForTests(std::optional<SInt64> now) { nowForTests = now; }

LongDateFields LongSecondsToDate(SInt64 seconds) {
    static const SInt64 first = LongDateToSeconds(kFirst), last = LongDateToSeconds(kLast);
    const Seconds held{std::clamp(seconds, first, last)};
    const auto day = floor<days>(held);
    const std::chrono::year_month_day date{kEpoch + day};
    const std::chrono::hh_mm_ss time{held - day};
    return {int{date.year()},
            static_cast<SInt32>(unsigned{date.month()}),
            static_cast<SInt32>(unsigned{date.day()}),
            static_cast<SInt32>(time.hours().count()),
            static_cast<SInt32>(time.minutes().count()),
            static_cast<SInt32>(time.seconds().count())};
}

SInt64 LongDateToSeconds(const LongDateFields& date) {
    const SInt64 day = DaysBeforeMonth(date.year, date.month) + date.day - 1;
    return ((day * 24 + date.hour) * 60 + date.minute) * 60 + date.second;
}
