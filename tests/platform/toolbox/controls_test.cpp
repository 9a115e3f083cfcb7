#include "interface.h"
#include "system/clock.h"
#include "toolbox/menus.h"

namespace kalmo::test {
namespace {

TEST(Controls, ValuesStayWithinTheirBounds) {
    QComboBox popup;
    popup.addItems({"one", "two", "three"});
    Interface interface(WindowFile(WidgetText("SpinArrows", 1)));
    QWidget* const arrows = interface.widget(1);
    const std::tuple<const char*, QWidget*, SInt32, SInt32, SInt32, SInt32> cases[] = {
        {"arrows, the widest bounds", arrows, INT32_MIN, INT32_MAX, INT32_MIN, INT32_MIN},
        {"arrows above", arrows, INT32_MIN, -3, INT32_MAX, -3},
        {"popup below its minimum", &popup, 1, 3, -1, 1},
        {"popup above its maximum", &popup, 1, 2, 3, 2},
        {"popup beyond its items but not its maximum", &popup, 0, 9, 7, 0},
    };
    const Heard arrowHits(ControlFromWidget(arrows)), popupHits(ControlFromWidget(&popup));
    for (const auto& [why, widget, minimum, maximum, value, result] : cases) {
        SCOPED_TRACE(why);
        const ControlRef control = ControlFromWidget(widget);
        SetControl32BitMaximum(control, maximum);
        SetControl32BitMinimum(control, minimum);
        SetControl32BitValue(control, value);
        EXPECT_EQ(GetControl32BitValue(control), result);
        EXPECT_EQ(arrowHits.record + popupHits.record, "");
    }
}

TEST(AngleDial, PointsToTheMouseWithinItsRange) {
    Interface interface(WindowFile(WidgetText("AngleDial", 1)));
    auto& dial = *interface.widget<QAbstractSlider>(1);
    dial.resize(dial.sizeHint());
    // The mouse in the dial of 56 pixels.
    const std::tuple<const char*, SInt32, SInt32, SInt32, SInt32, QPoint, Qt::KeyboardModifiers>
        rows[] = {
            {"up is a quarter", -180, 180, 0, 90, {28, 8}, {}},
            {"half, from below", -180, 180, -170, -180, {8, 28}, {}},
            {"over the end", -180, 180, 170, -135, {8, 48}, {}},
            {"steps of 15", -180, 180, 0, 45, {48, 10}, Qt::ShiftModifier},
            {"the middle points nowhere", -180, 180, 7, 7, {28, 29}, {}},
            {"nearer end", 0, 90, 10, 90, {8, 26}, {}},
        };
    for (const auto& [why, least, most, from, to, mouse, keys] : rows) {
        SCOPED_TRACE(why);
        dial.setRange(least, most);
        dial.setValue(from);
        QTest::mouseClick(&dial, Qt::LeftButton, keys, mouse);
        EXPECT_EQ(dial.value(), to);
    }
}

TEST(DateTimeFields, GiveBackWhatTheyCanShowAndHitWhenTyped) {
    setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);  // leaves an hour of 31 March 2030 out
    tzset();
    Interface interface(WindowFile(WidgetText("QTimeEdit", 1)));
    const ControlRef control = interface.control(1);
    const Heard hits(control);
    const SInt64 leftOut = LongDateToSeconds({2030, 3, 31, 2, 30, 5});
    for (const auto& [seconds, shown] : {std::pair{SInt64{0}, SInt64{0}},
                                         {leftOut, leftOut},
                                         {INT64_MAX, LongDateToSeconds({9999, 12, 31, 23, 59, 59})},
                                         {INT64_MIN, LongDateToSeconds({100, 1, 1})}}) {
        SetControlDateTime(control, seconds);
        EXPECT_EQ(GetControlDateTime(control), shown);
    }
    EXPECT_EQ(hits.record, "");
    SetControlDateTime(control, leftOut);
    interface.widget<QTimeEdit>(1)->setSelectedSection(QTimeEdit::MinuteSection);
    QTest::keyClicks(interface.widget(1), "45");
    EXPECT_NE(hits.record, "");
    EXPECT_EQ(GetControlDateTime(control), leftOut + 15 * 60);
    unsetenv("TZ");
    tzset();
}

}  // namespace
}  // namespace kalmo::test
