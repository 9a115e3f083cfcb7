// What users type as pages.
#include "special_pages/page_ranges.h"

#include <gtest/gtest.h>

#include "support/bundles.h"
#include "support/values.h"
#include "system/presence.h"

namespace kalmo::test {
namespace {

struct Read {
    OSStatus code;
    std::vector<PageRange> ranges;
};
Read ReadRanges(const std::string& text, bool byRange) {
    Read read;
    read.code = CreatePageRangesBySeparatingString(String(text), byRange, &read.ranges);
    return read;
}

TEST(PageRanges, AreReadAsTyped) {
    using Ranges = std::vector<PageRange>;
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
        {"zeros ahead", "000000000000000000099999", 0, {{99999, 1}}},
        {"empty", "", kInvalidPages, {}},
        {"nothing but blanks", " , ,", kInvalidPages, {}},
        {"lone dash", "1,-", kInvalidPages, {}},
        {"dash before a comma", "-,1", kInvalidPages, {}},
        {"two dashes", "3--4", kInvalidPages, {}},
        {"backwards", "7-5", kInvalidRange, {}},
        {"ends before page 1", "-0", kInvalidRange, {}},
        {"first fault tells", "7-5,100000", kInvalidRange, {}},
        {"six digits", "1-100000", kPageNumberLimit, {}},
        {"more than any integer", "1,18446744073709551617", kPageNumberLimit, {}},
    };
    for (const auto& row : rows) {
        const Read read = ReadRanges(row.text, true);
        EXPECT_EQ(read.code, row.code) << row.why;
        EXPECT_EQ(read.ranges, row.ranges) << row.why;
    }
    EXPECT_EQ(ReadRanges("12, 15-17", false).ranges, (Ranges{{12, 1}, {15, 1}, {16, 1}, {17, 1}}));
    EXPECT_EQ(ReadRanges("1-99999", false).ranges.size(), 99999u);
    Ranges kept{{7, 7}};
    EXPECT_EQ(CreatePageRangesBySeparatingString(CFSTR("1,2x-"), true, &kept), noErr);
    EXPECT_EQ(CreatePageRangesBySeparatingString(CFSTR("9,--"), true, &kept), kInvalidPages);
    EXPECT_EQ(kept, (Ranges{{1, 1}, {2, 99998}})) << "left alone by a fault";
    EXPECT_EQ(CreatePageRangesBySeparatingString(nullptr, true, &kept), paramErr);
    EXPECT_EQ(CreatePageRangesBySeparatingString(CFSTR("1"), true, nullptr), paramErr);
}

TEST(PageRanges, AMegabyteOfThemIsBounded) {
    std::string all;
    while (all.size() < 1'000'000) all += "1-99999,";
    EXPECT_EQ(ReadRanges(all, true).ranges.size(), all.size() / 8);
    EXPECT_EQ(ReadRanges(all.substr(0, 80), false).ranges.size(), 999'990u);
    EXPECT_EQ(ReadRanges(all, false).code, kInvalidPages);
    EXPECT_EQ(ReadRanges(std::string(1'000'000, '9'), true).code, kPageNumberLimit);
    EXPECT_EQ(ReadRanges(std::string(1'000'000, ','), true).code, kInvalidPages);
}

TEST(PageRanges, EachCodeHasItsAlert) {
    const auto bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    std::vector<std::string> shown;
    Presence presence = UnattendedPresence();
    presence.notice = [&](CFStringRef, CFStringRef text) { shown.push_back(CFStringToUTF8(text)); };
    InstallPresence(presence);
    for (const OSStatus code : {0, 999, 1000, 1001, 1002, 1003, 1004, 1234})
        SpecialPagesUserNotification(code, bundle);
    InstallPresence(UnattendedPresence());
    ASSERT_EQ(shown.size(), 5u);
    EXPECT_EQ(shown[0], "A page number can have at most 5 digits.");
}

}  // namespace
}  // namespace kalmo::test
