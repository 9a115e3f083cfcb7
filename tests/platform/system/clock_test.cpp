// The clock's scale: calendar arithmetic far beyond what anyone stores, never overflowing.
#include "system/clock.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace {

auto Fields(const LongDateFields& date) {
    return std::tuple(date.year, date.month, date.day, date.hour, date.minute, date.second);
}

TEST(Clock, FieldsCarryOverAndHugeValuesAreHeld) {
    constexpr SInt64 kFarthest = std::numeric_limits<SInt64>::max();
    constexpr SInt32 kMost = std::numeric_limits<SInt32>::max();
    const SInt64 latest = LongDateToSeconds({kMost, kMost, kMost, kMost, kMost, kMost});
    EXPECT_GT(latest, SInt64{kMost} * 365 * 86'400);
    const struct {
        SInt64 seconds;
        LongDateFields same;
    } kRows[] = {
        {0, {}},
        {-1, {1903, 12, 31, 23, 59, 59}},
        {2'082'844'800, {1970, 1, 1}},
        {LongDateToSeconds({2023, 14, 30, 0, 0, 86'400}), {2024, 3, 2}},
        {LongDateToSeconds({2026, 0, 0, 0, 0, -1}), {2025, 11, 29, 23, 59, 59}},
        {latest, {30081, 12, 31, 23, 59, 59}},
        {kFarthest, {30081, 12, 31, 23, 59, 59}},
        {-kFarthest - 1, {-4712, 1, 1}},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(Fields(LongSecondsToDate(row.seconds)), Fields(row.same)) << row.seconds;
    }
}

}  // namespace
