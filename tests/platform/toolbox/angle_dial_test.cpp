#include "interface.h"
#include "support/window_walk.h"

namespace kalmo::test {
namespace {

class Dials : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(interface.open(), noErr);
        interface.windowWidget()->show();
    }
    [[nodiscard]] QAbstractSlider& dial() const { return *interface.widget<QAbstractSlider>(1); }

    Interface interface {
        WindowFile(WidgetText("AngleDial", 1, StringProperty("nameKey", "Angle"))),
            "\"Angle\" = \"Angle\";"
    };
};

TEST_F(Dials, PointToTheMouseWithinTheirRange) {
    const struct {
        const char* why;
        SInt32 least, most, from;
        QPoint way;  // from the middle, downwards positive
        Qt::KeyboardModifiers keys;
        SInt32 to;
    } rows[] = {
        {"up is a quarter", -180, 180, 0, {0, -20}, {}, 90},
        {"half, from above", -180, 180, 170, {-20, 0}, {}, 180},
        {"half, from below", -180, 180, -170, {-20, 0}, {}, -180},
        {"over the end", -180, 180, 170, {-20, 20}, {}, -135},
        {"steps of 15", -180, 180, 0, {20, -18}, Qt::ShiftModifier, 45},
        {"the middle points nowhere", -180, 180, 7, {0, 1}, {}, 7},
        {"the turn goes on", 0, 720, 350, {20, -20}, {}, 405},
        {"nearer end", 0, 90, 10, {-20, -2}, {}, 90},
        {"no range", 30, 30, 30, {0, 20}, {}, 30},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        dial().setRange(row.least, row.most);
        dial().setValue(row.from);
        const QPoint middle = dial().rect().center() + QPoint(1, 1);
        QTest::mousePress(&dial(), Qt::LeftButton, row.keys, middle + row.way);
        QTest::mouseRelease(&dial(), Qt::LeftButton, row.keys, middle + row.way);
        EXPECT_EQ(dial().value(), row.to);
    }
}

TEST_F(Dials, TurnOnPastTheFullCircleByKeyAndWheel) {
    dial().setValue(179);
    for (const auto& [key, value] : {std::pair{Qt::Key_PageUp, -166},
                                     {Qt::Key_PageDown, 179},
                                     {Qt::Key_Up, 180},
                                     {Qt::Key_Right, -179},
                                     {Qt::Key_Left, -180},
                                     {Qt::Key_Down, 179}}) {
        QTest::keyClick(&dial(), key);
        EXPECT_EQ(dial().value(), value);
    }
    QWheelEvent wheel({9, 9}, {9, 9}, {}, {0, 240}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(&dial(), &wheel);
    EXPECT_EQ(dial().value(), -179);
    QTest::keyClick(&dial(), Qt::Key_Home);
    EXPECT_EQ(dial().value(), 0);
}

TEST_F(Dials, AreNamedDialsForAssistiveTechnology) {
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&dial());
    SetControl32BitValue(interface.control(1), -45);
    EXPECT_EQ(seen->role(), QAccessible::Dial);
    EXPECT_EQ(seen->valueInterface()->currentValue(), -45);
    EXPECT_EQ(WindowFaults(*interface.windowWidget(), Identities::needed),
              std::vector<std::string>());
}

}  // namespace
}  // namespace kalmo::test
