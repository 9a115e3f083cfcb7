// The clock's scale: calendar arithmetic far beyond what anyone stores, never overflowing.
#include "system/clock.h"

#include <gtest/gtest.h>

#include <ctime>
#include <limits>
#include <tuple>

namespace {

constexpr SInt32 kMin = std::numeric_limits<SInt32>::min();
constexpr SInt32 kMax = std::numeric_limits<SInt32>::max();

auto Fields(const LongDateFields& date) {
    return std::tuple(date.year, date.month, date.day, date.hour, date.minute, date.second);
}

TEST(Clock, SecondsAreDatesAndBack) {
    const struct {
        SInt64 seconds;
        LongDateFields date;
    } kRows[] = {
        {0, {1904, 1, 1, 0, 0, 0}},
        {-1, {1903, 12, 31, 23, 59, 59}},
        {2'082'844'800, {1970, 1, 1, 0, 0, 0}},
        {3'034'627'199, {2000, 2, 28, 23, 59, 59}},
        {3'034'627'200, {2000, 2, 29, 0, 0, 0}},
        {-126'144'000, {1900, 1, 1, 0, 0, 0}},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(Fields(LongSecondsToDate(row.seconds)), Fields(row.date)) << row.seconds;
        EXPECT_EQ(LongDateToSeconds(row.date), row.seconds);
    }
}

TEST(Clock, FieldsCarryOver) {
    const struct {
        LongDateFields given, same;
    } kRows[] = {
        {{2026, 12, 31, 24, 0, 0}, {2027, 1, 1, 0, 0, 0}},
        {{2026, 0, 0, 0, 0, -1}, {2025, 11, 29, 23, 59, 59}},
        {{2023, 14, 30, 0, 0, 86'400}, {2024, 3, 2, 0, 0, 0}},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(Fields(LongSecondsToDate(LongDateToSeconds(row.given))), Fields(row.same));
    }
}

TEST(Clock, HugeValuesAreHeld) {
    constexpr SInt64 kFarthest = std::numeric_limits<SInt64>::max();
    EXPECT_EQ(Fields(LongSecondsToDate(kFarthest)), Fields({30081, 12, 31, 23, 59, 59}));
    EXPECT_EQ(Fields(LongSecondsToDate(-kFarthest - 1)), Fields({-4712, 1, 1, 0, 0, 0}));
    const SInt64 latest = LongDateToSeconds({kMax, kMax, kMax, kMax, kMax, kMax});
    const SInt64 earliest = LongDateToSeconds({kMin, kMin, kMin, kMin, kMin, kMin});
    EXPECT_GT(latest, SInt64{kMax} * 365 * 86'400);
    EXPECT_LT(earliest, SInt64{kMin} * 365 * 86'400);
}

TEST(Clock, NowIsTheWallClockUnlessATestSetsIt) {
    setenv("TZ", "XXX-5:30", 1);  // ahead of UTC
    tzset();
    const SInt64 wall = std::time(nullptr) + 2'082'844'800 + 19'800;
    EXPECT_NEAR(static_cast<double>(GetLongDateTime()), static_cast<double>(wall), 2);
    unsetenv("TZ");
    tzset();
    SetNowForTests(77);
    EXPECT_EQ(GetLongDateTime(), 77);
    SetNowForTests(std::nullopt);
    EXPECT_GT(GetLongDateTime(), 77);
}

}  // namespace
