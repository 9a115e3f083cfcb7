#include "interface.h"

namespace kalmo::test {
namespace {

/// What the action was called with: u, d, or s for a slider's thumb.
std::string pressed;

void Note(ControlRef, SInt16 part) {
    const bool isUp = part == kControlUpButtonPart, isDown = part == kControlDownButtonPart;
    pressed += isUp ? 'u' : isDown ? 'd' : part == kControlIndicatorPart ? 's' : '?';
}

/// Arrows from -20 to 100 at 5.
struct Arrows : testing::Test {
    void SetUp() override {
        pressed.clear();
        interface.windowWidget()->show();
        arrows().resize(arrows().sizeHint());
        SetControlAction(control(), Note);
    }

    [[nodiscard]] ControlRef control() { return interface.control(1); }
    [[nodiscard]] QWidget& arrows() { return *interface.widget(1); }
    [[nodiscard]] QPoint upper() { return {arrows().width() / 2, arrows().height() / 4}; }
    [[nodiscard]] QPoint lower() { return {arrows().width() / 2, arrows().height() * 3 / 4}; }

    void turn(int delta) {
        QWheelEvent wheel(upper(), upper(), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&arrows(), &wheel);
    }

    Interface interface {
        WindowFile(WidgetText("SpinArrows", 1,
                              "<property name=\"minimum\"><number>-20</number></property>"
                              "<property name=\"value\"><number>5</number></property>"))
    };
};

TEST_F(Arrows, StepAtOnceThenAgainWhileHeldInside) {
    QTest::mousePress(&arrows(), Qt::LeftButton, {}, lower());
    QTest::qWait(150);
    EXPECT_EQ(pressed, "d") << "a click is one step";
    EXPECT_TRUE(QTest::qWaitFor([] { return pressed.starts_with("dddd"); }));
    QTest::mouseMove(&arrows(), upper());
    const std::size_t steps = pressed.size();
    QTest::qWait(60);
    EXPECT_EQ(pressed.size(), steps) << "over the other half nothing steps";
    QTest::mouseMove(&arrows(), lower());
    EXPECT_TRUE(QTest::qWaitFor([&] { return pressed.size() > steps; }));
    QTest::mouseRelease(&arrows(), Qt::LeftButton, {}, lower());
    pressed.clear();
    QTest::qWait(60);
    EXPECT_EQ(pressed, "");
    EXPECT_EQ(GetControl32BitValue(control()), 5) << "the value is the action's business";
}

TEST_F(Arrows, TakeKeysAndWheelWithTheFocusOnly) {
    turn(120);
    EXPECT_EQ(pressed, "");
    Activate(*interface.windowWidget());
    arrows().setFocus();
    for (const int delta : {60, 60, -240}) turn(delta);
    QTest::keyClick(&arrows(), Qt::Key_Up);
    EXPECT_EQ(pressed, "uddu");
}

TEST_F(Arrows, MayGoWhileTheyArePressed) {
    SetControlAction(control(), [](ControlRef self, SInt16) { DisposeControl(self); });
    QTest::mousePress(&arrows(), Qt::LeftButton, {}, upper());
    EXPECT_EQ(control(), nullptr);
}

TEST_F(Arrows, AreASpinBoxForAssistiveTechnology) {
    SetControlAction(control(), [](ControlRef self, SInt16 part) {
        const SInt32 step = part == kControlUpButtonPart ? 4 : -4;
        SetControl32BitValue(self, GetControl32BitValue(self) + step);
    });
    constexpr SInt32 step = 4;
    SetControlData(control(), kControlIncrementTag, sizeof step, &step);
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&arrows());
    seen->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    EXPECT_EQ(seen->valueInterface()->currentValue(), 9);
    for (const int wanted : {-20, 100, 3}) {
        seen->valueInterface()->setCurrentValue(wanted);
        EXPECT_EQ(GetControl32BitValue(control()), wanted);
    }
}

}  // namespace
}  // namespace kalmo::test
