#include "interface.h"

namespace kalmo::test {
namespace {

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

}  // namespace
}  // namespace kalmo::test
