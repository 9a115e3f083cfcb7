// What users type as pages.
#include "special_pages/page_ranges.h"

namespace kalmo::test {
namespace {

using Ranges = std::vector<PageRange>;

std::pair<OSStatus, Ranges> Read(const std::string& text, bool byRange) {
    Ranges ranges;
    const OSStatus code = CreatePageRangesBySeparatingString(String(text), byRange, &ranges);
    return {code, ranges};
}

TEST(PageRanges, AreReadAsTyped) {
    const struct {
        const char *why, *text;
        OSStatus code;
        Ranges ranges;
    } rows[] = {
        {"order of the text, repeats kept", "15-17, 12,15", 0, {{15, 3}, {12, 1}, {15, 1}}},
        {"open start", "-5", 0, {{1, 5}}},
        {"open end", "5-", 0, {{5, 99995}}},
        {"a dash behind a range opens the next", "5-7-9", 0, {{5, 3}, {1, 9}}},
        {"blanks part", "1 2", 0, {{1, 1}, {2, 1}}},
        {"letters part", "12a3", 0, {{12, 1}, {3, 1}}},
        {"blanks within a range", "1 - 3", 0, {{1, 3}}},
        {"empty items", ",1,,2,", 0, {{1, 1}, {2, 1}}},
        {"page 0", "0", 0, {{0, 1}}},
        {"digits of other scripts", "٣-५", 0, {{3, 3}}},
        {"empty", "", kInvalidPages, {}},
        {"nothing but blanks", " , ,", kInvalidPages, {}},
        {"lone dash", "1,-", kInvalidPages, {}},
        {"two dashes", "3--4", kInvalidPages, {}},
        {"backwards", "7-5", kInvalidRange, {}},
        {"first fault tells", "7-5,100000", kInvalidRange, {}},
        {"six digits", "1-100000", kPageNumberLimit, {}},
        {"more than any integer", "1,18446744073709551617", kPageNumberLimit, {}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Read(row.text, true), std::pair(row.code, row.ranges)) << row.why;
    }
    EXPECT_EQ(Read("12, 15-17", false).second, (Ranges{{12, 1}, {15, 1}, {16, 1}, {17, 1}}));
    Ranges kept{{7, 7}};
    EXPECT_EQ(CreatePageRangesBySeparatingString(CFSTR("9,--"), true, &kept), kInvalidPages);
    EXPECT_EQ(kept, (Ranges{{7, 7}})) << "left alone by a fault";
}

TEST(PageRanges, AMegabyteOfThemIsBounded) {
    std::string all;
    while (all.size() < 1'000'000) all += "1-99999,";
    EXPECT_EQ(Read(all, true).second.size(), all.size() / 8);
    EXPECT_EQ(Read(all.substr(0, 80), false).second.size(), 999'990u);
    EXPECT_EQ(Read(all, false).first, kInvalidPages);
    EXPECT_EQ(Read(std::string(1'000'000, '9'), true).first, kPageNumberLimit);
    EXPECT_EQ(Read(std::string(1'000'000, ','), true).first, kInvalidPages);
}

}  // namespace
}  // namespace kalmo::test
