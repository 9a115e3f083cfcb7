// Tabs: what is in front, and where Tab goes.
#include "interface.h"

namespace kalmo::test {
namespace {

std::string Page(const std::string& name, const std::string& content) {
    return "<widget class=\"QWidget\" name=\"" + name +
           "\"><property name=\"textKey\" stdset=\"0\"><string>" + name +
           "</string></property><layout class=\"QVBoxLayout\"><item>" + content +
           "</item></layout></widget>";
}

/// A field on each of two pages, and a button below.
struct Tabs : testing::Test {
    Interface interface {
        WindowFile("<layout class=\"QVBoxLayout\"><item>" +
                   WidgetText("QTabWidget", 1,
                              Page("First", WidgetText("QLineEdit", 2)) +
                                  Page("Second", WidgetText("TextArea", 3))) +
                   "</item><item>" + WidgetText("QPushButton", 4) + "</item></layout>"),
            R"("First" = "&First"; "Second" = "&Second";)"
    };
    ControlRef tabs = interface.control(1);
    const Heard hits{tabs};
};

TEST_F(Tabs, OnlyTheUserBringsAnotherToTheFrontWithAHit) {
    const auto widget = interface.widget<QTabWidget>(1);
    for (const auto& [value, front] : {std::pair{2, 2}, {9, 2}, {-1, 1}}) {
        SetControl32BitValue(tabs, value);
        EXPECT_EQ(GetControl32BitValue(tabs), front);
    }
    Activate(*interface.windowWidget());
    EXPECT_EQ(hits.record, "");
    QTest::keyClick(widget, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(GetControl32BitValue(tabs), 2);
    QTest::keyClick(interface.widget(3), Qt::Key_PageUp, Qt::ControlModifier);
    QTest::keyClick(interface.widget(3), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(GetControl32BitValue(tabs), 1);
    EXPECT_EQ(hits.record, "hh");
}

TEST_F(Tabs, TabGoesThroughTheRowThePageInFrontAndTheRest) {
    Activate(*interface.windowWidget());
    QWidget* const row = interface.widget<QTabWidget>(1)->tabBar();
    for (const SInt32 page : {1, 2}) {
        SetControl32BitValue(tabs, page);
        SetKeyboardFocus(tabs);
        EXPECT_TRUE(HasKeyboardFocus(tabs));
        for (QWidget* next : {interface.widget(page + 1), interface.widget(4), row}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            EXPECT_EQ(QApplication::focusWidget(), next);
        }
    }
}

}  // namespace
}  // namespace kalmo::test
