// What people type into the page range field.
#include <gtest/gtest.h>

#include "print_dialog/job_settings.h"

namespace kalmo::test {
namespace {

TEST(PageRanges, TextBecomesSortedMergedRangesOrNothing) {
    const struct {
        const char* why;
        const char* text;
        const char* expected;  // null: refused
    } rows[] = {
        {"one page", "4", "4"},
        {"blanks and dashes as people write them", " 1 - 3 , 5 ", "1-3,5"},
        {"out of order, touching and overlapping", "7,2-3,4-5,3", "2-5,7"},
        {"the last page", "12", "12"},
        {"empty", "", nullptr},
        {"blanks only", "  ", nullptr},
        {"nothing between commas", "1,,3", nullptr},
        {"still typing a list", "1,", nullptr},
        {"still typing a range", "2-", nullptr},
        {"no start", "-3", nullptr},
        {"page 0", "0-2", nullptr},
        {"behind the end", "11-13", nullptr},
        {"backwards", "5-3", nullptr},
        {"three ends", "1-2-3", nullptr},
        {"letters", "one", nullptr},
        {"a sign", "+1", nullptr},
        {"a fraction", "1.5", nullptr},
        {"larger than any number", "99999999999999999999", nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto ranges = ParsePageRanges(row.text, 12);
        ASSERT_EQ(ranges.has_value(), row.expected != nullptr);
        if (ranges) {
            EXPECT_EQ(PageRangesText(*ranges), row.expected);
        }
    }
}

}  // namespace
}  // namespace kalmo::test
