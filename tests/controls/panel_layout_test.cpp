// Centring.
#include <gtest/gtest.h>

#include "controls/panel_layout.h"

namespace kalmo::test {
namespace {

TEST(PanelLayout, CentredViewsNeverLeaveTheUpperLeftEdge) {
    struct {
        const char* why;
        Rect outer, inner;
        int left, top;
    } const rows[] = {
        {"wherever the outer view stands", {50, 50, 150, 250}, {0, 0, 40, 100}, 50, 30},
        {"too wide", {0, 0, 100, 200}, {0, 0, 40, 300}, 0, 30},
        {"too high", {0, 0, 30, 200}, {0, 0, 40, 100}, 50, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const Rect centred = CentredIn(row.outer, row.inner);
        EXPECT_EQ(centred.left, row.left);
        EXPECT_EQ(centred.top, row.top);
    }
}

}  // namespace
}  // namespace kalmo::test
