// Sections stacked in a pane, and centring.
#include <gtest/gtest.h>

#include <QLabel>

#include "controls/panel_layout.h"
#include "toolbox/host.h"

namespace kalmo::test {
namespace {

TEST(PanelLayout, SectionsStackAndAMissingOneChangesNothing) {
    QWidget window;
    const auto addSection = [&](SInt32 id, int height, const char* text) {
        auto* section = new QWidget(&window);
        section->setGeometry(0, 300, 200, height);
        auto* label = new QLabel(text, section);
        label->move(8, 5);
        SetControlID(ControlFromWidget(section), {'KPDE', id});
        return label;
    };
    const QLabel* first = addSection(1, 40, "first");
    const QLabel* second = addSection(2, 70, "second");
    ControlRef pane = nullptr;
    ASSERT_EQ(CreateUserPaneControl(WindowFromWidget(&window), {0, 0, 300, 400}, &pane), noErr);

    auto append = [&, height = SInt32{0}](SInt32 section) mutable {
        const OSStatus status =
            AppendViewFromWindowAndUnpack(pane, WindowFromWidget(&window), section, &height);
        return std::pair(status, height);
    };
    EXPECT_EQ(append(1), std::pair(noErr, 40));
    EXPECT_EQ(append(3), std::pair(controlNotFoundErr, 40));
    EXPECT_EQ(append(2), std::pair(noErr, 110));
    const QWidget* paneWidget = WidgetFromControl(pane);
    EXPECT_TRUE(paneWidget->isAncestorOf(first));
    EXPECT_TRUE(paneWidget->isAncestorOf(second));
    EXPECT_LT(first->mapTo(&window, QPoint()).y(), second->mapTo(&window, QPoint()).y());
}

TEST(PanelLayout, CentredViewsNeverLeaveTheUpperLeftEdge) {
    struct {
        const char* why;
        Rect outer, inner;
        int left, top;
    } const rows[] = {
        {"smaller", {0, 0, 100, 200}, {7, 9, 47, 109}, 50, 30},
        {"wherever the outer view stands", {50, 50, 150, 250}, {0, 0, 40, 100}, 50, 30},
        {"too wide", {0, 0, 100, 200}, {0, 0, 40, 300}, 0, 30},
        {"too high", {0, 0, 30, 200}, {0, 0, 40, 100}, 50, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const Rect centred = CentredIn(row.outer, row.inner);
        EXPECT_EQ(centred.left, row.left);
        EXPECT_EQ(centred.top, row.top);
        EXPECT_EQ(centred.right - centred.left, row.inner.right - row.inner.left);
        EXPECT_EQ(centred.bottom - centred.top, row.inner.bottom - row.inner.top);
    }
}

}  // namespace
}  // namespace kalmo::test
