#include <QAccessible>
#include <QSlider>
#include <QTest>
#include <limits>

#include "interface.h"
#include "support/window_walk.h"

namespace kalmo::test {
namespace {

/// Parts of the last control that an action was called with: u, d, s.
std::string pressed;

void Note(ControlRef, SInt16 part) {
    pressed += part == kControlUpButtonPart     ? 'u'
               : part == kControlDownButtonPart ? 'd'
               : part == kControlIndicatorPart  ? 's'
                                                : '?';
}

std::string Number(const char* name, int number) {
    return "<property name=\"" + std::string(name) + "\"><number>" + std::to_string(number) +
           "</number></property>";
}

/// Arrows from -20 to 20 at 5, as an interface file makes them, beside a label.
class Arrows : public testing::Test {
protected:
    void SetUp() override {
        pressed.clear();
        ASSERT_EQ(interface.open(), noErr);
        interface.windowWidget()->show();
        arrows().resize(arrows().sizeHint());
        SetControlAction(control(), Note);
    }

    [[nodiscard]] ControlRef control() { return interface.control(1); }
    [[nodiscard]] QWidget& arrows() { return *interface.widget(1); }
    [[nodiscard]] QPoint upper() { return {arrows().width() / 2, arrows().height() / 4}; }
    [[nodiscard]] QPoint lower() { return {arrows().width() / 2, arrows().height() * 3 / 4}; }

    bool turn(int delta) {
        QWheelEvent wheel(upper(), upper(), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&arrows(), &wheel);
        return wheel.isAccepted();
    }

    Interface interface {
        WindowFile(Geometry(0, 0, 200, 100) +
                   WidgetText("SpinArrows", 1,
                              Number("minimum", -20) + Number("maximum", 20) + Number("value", 5) +
                                  StringProperty("nameKey", "Angle"))),
            "\"Angle\" = \"Angle\";"
    };
};

TEST_F(Arrows, StepAtOnceThenAgainWhileHeldInside) {
    QTest::mousePress(&arrows(), Qt::LeftButton, {}, lower());
    EXPECT_EQ(pressed, "d");
    QTest::qWait(150);
    EXPECT_EQ(pressed, "d") << "a click is one step";
    ASSERT_TRUE(QTest::qWaitFor([] { return pressed.size() >= 5; }));
    QTest::mouseMove(&arrows(), upper());
    const std::string sofar = pressed;
    QTest::qWait(60);
    EXPECT_EQ(pressed, sofar) << "over the other half nothing steps";
    QTest::mouseMove(&arrows(), lower());
    EXPECT_TRUE(QTest::qWaitFor([&] { return pressed.size() > sofar.size(); }));
    QTest::mouseRelease(&arrows(), Qt::LeftButton, {}, lower());
    pressed.clear();
    QTest::qWait(60);
    EXPECT_EQ(pressed, "");
    EXPECT_EQ(GetControl32BitValue(control()), 5) << "the value is the action's business";
}

TEST_F(Arrows, ALostReleaseEndsThePress) {
    QTest::mousePress(&arrows(), Qt::LeftButton, {}, upper());
    DisableControl(control());
    QTest::qWait(350);
    EXPECT_EQ(pressed, "u");
}

TEST_F(Arrows, TakeKeysAndWheelWithTheFocusOnly) {
    EXPECT_FALSE(turn(120));
    interface.windowWidget()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(interface.windowWidget()));
    arrows().setFocus();
    EXPECT_TRUE(turn(60));
    EXPECT_EQ(pressed, "");
    EXPECT_TRUE(turn(60));
    EXPECT_TRUE(turn(-240));
    QTest::keyClick(&arrows(), Qt::Key_Up);
    QTest::keyClick(&arrows(), Qt::Key_Down);
    EXPECT_EQ(pressed, "uddud");
    SetControlAction(control(), nullptr);
    QTest::keyClick(&arrows(), Qt::Key_Up);
    EXPECT_EQ(GetControl32BitValue(control()), 5);
}

TEST_F(Arrows, MayGoWhileTheyArePressed) {
    SetControlAction(control(), [](ControlRef self, SInt16) { DisposeControl(self); });
    QTest::mousePress(&arrows(), Qt::LeftButton, {}, upper());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(control(), nullptr);
}

TEST_F(Arrows, AreANamedSpinBoxForAssistiveTechnology) {
    SetControlAction(control(), [](ControlRef self, SInt16 part) {
        const SInt32 step = part == kControlUpButtonPart ? 4 : -4;
        SetControl32BitValue(self, GetControl32BitValue(self) + step);
    });
    const SInt32 step = 4;
    SetControlData(control(), kControlIncrementTag, sizeof step, &step);
    EXPECT_EQ(WindowFaults(*interface.windowWidget(), Identities::needed),
              std::vector<std::string>());
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&arrows());
    EXPECT_EQ(seen->role(), QAccessible::SpinBox);
    EXPECT_EQ(seen->text(QAccessible::Name), "Angle");
    seen->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    EXPECT_EQ(seen->valueInterface()->currentValue(), 9);
    for (const int wanted : {-20, 20, 3}) {
        seen->valueInterface()->setCurrentValue(wanted);
        EXPECT_EQ(GetControl32BitValue(control()), wanted);
    }
}

TEST(Sliders, CallTheirActionAtEachOfTheUsersMovements) {
    pressed.clear();
    QSlider slider;
    const ControlRef control = ControlFromWidget(&slider);
    SetControlAction(control, Note);
    SetControl32BitValue(control, 7);
    EXPECT_EQ(pressed, "");
    QTest::keyClick(&slider, Qt::Key_Up);
    QTest::keyClick(&slider, Qt::Key_Up);
    EXPECT_EQ(pressed, "ss");
    EXPECT_EQ(GetControl32BitValue(control), 9) << "a slider moves by itself";
}

}  // namespace
}  // namespace kalmo::test
