// Fields for numbers and limited texts.
#include "controls/input_limits.h"
#include "controls/spin_control.h"
#include "platform/toolbox/interface.h"
#include "support/beeps.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kField = 1, kArrows = 2, kSlider = 3, kOther = 4;
using Sign = SpinControlSetup::Sign;

struct Fields : testing::Test {
    /// A window on screen, with the focus in the empty field of numbers.
    void open(SpinControlSetup setup, const char* slider = "QSlider") {
        interface = std::make_unique<Interface>(
            WindowFile(WidgetText("QLineEdit", kField) + WidgetText("SpinArrows", kArrows) +
                       WidgetText(slider, kSlider) + WidgetText("QLineEdit", kOther)));
        setup.arrows = kArrows, setup.field = kField, setup.slider = kSlider;
        ASSERT_EQ(SetUpSpinControl(interface->window, 'KPDE', setup), noErr);
        interface->windowWidget()->show();
        QApplication::setActiveWindow(interface->windowWidget());
        field().setFocus();
    }

    [[nodiscard]] QLineEdit& field(SInt32 id = kField) const {
        return *interface->widget<QLineEdit>(id);
    }
    [[nodiscard]] ControlRef arrows() const { return interface->control(kArrows); }
    [[nodiscard]] SInt32 value() const { return GetControl32BitValue(arrows()); }
    [[nodiscard]] std::string text() const { return field().text().toStdString(); }

    CountedBeeps beeps;
    std::unique_ptr<Interface> interface;
};

TEST_F(Fields, TypedNumberSetsTheValueAndIsReplacedWhenTheFieldIsLeft) {
    const std::tuple<const char*, const char*, SpinControlSetup, const char*, SInt32, bool,
                     const char*>
        rows[] = {
            {"above", "C", {.maximum = 9}, "10", 9, false, "9"},
            {"empty is 0", "C", {.minimum = 1, .maximum = 9}, "7\b", 1, false, "1"},
            {"32 bits", "C", {.maximum = INT32_MAX}, "5e999999999", INT32_MAX, false, "2147483647"},
            {"no number", "C", {.minimum = -9, .maximum = 9}, "4-", 4, false, "4"},
            {"other minus", "sv_SE", {.minimum = -9, .maximum = 9}, "-7", -7, true, "\u22127"},
            {"comma", "de_DE", {.maximum = 999, .decimals = 1}, "1.2,5", 125, true, "12,5"},
            {"point", "C", {.maximum = 999, .decimals = 1}, "1,2.5", 125, true, "12.5"},
            {"sign", "C", {.maximum = 99, .sign = Sign::angle}, "45", 45, true, "45\u02DA"},
        };
    for (const auto& [why, locale, setup, typed, number, valid, left] : rows) {
        SCOPED_TRACE(why);
        setenv("LC_ALL", locale, 1);
        open(setup);
        QTest::keyClicks(&field(), typed);
        EXPECT_EQ(value(), number);
        EXPECT_EQ(SpinControlIsInputValid(arrows()), valid);
        field(kOther).setFocus();
        EXPECT_EQ(text(), left);
        EXPECT_TRUE(SpinControlIsInputValid(arrows()));
    }
}

TEST_F(Fields, StepsEndAtTheBoundWithABeep) {
    open({.minimum = -5, .maximum = 12, .step = 10, .sign = Sign::percent});
    QWidget& halves = *interface->widget(kArrows);
    QTest::mouseClick(&halves, Qt::LeftButton, {}, {halves.width() / 2, halves.height() / 3});
    EXPECT_EQ(text(), "10%");
    QTest::keyClicks(&field(), "\b\b1");
    EXPECT_EQ(value(), 11) << "the sign is read back";
    QTest::keyClick(&field(), Qt::Key_Up);
    EXPECT_EQ(beeps.take(), 0);
    QTest::keyClicks(&field(), "\b9");
    EXPECT_EQ(text(), "129");
    QTest::keyClick(&field(), Qt::Key_Up);
    EXPECT_EQ(text(), "12%");
    EXPECT_EQ(beeps.take(), 1);
    for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(&field(), key);
    EXPECT_EQ(value(), -5);
    EXPECT_EQ(beeps.take(), 2) << "Return and Enter";
}

TEST_F(Fields, SliderAndFieldFollowEachOther) {
    for (const auto& [slider, beyond] : {std::pair{"QSlider", 180}, {"AngleDial", -170}}) {
        SCOPED_TRACE(slider);
        open({.minimum = -180, .maximum = 180, .sign = Sign::angle}, slider);
        auto& control = *interface->widget<QAbstractSlider>(kSlider);
        control.setPageStep(15);
        QTest::keyClicks(&field(), "175");
        EXPECT_EQ(control.value(), 175);
        QTest::keyClick(&control, Qt::Key_PageUp);
        EXPECT_EQ(text(), std::to_string(beyond) + "\u02DA");
        EXPECT_EQ(value(), beyond);
    }
}

TEST_F(Fields, LimitedTextRefusesWhatIsTypedOrPastedBeyond) {
    open({});
    const auto letters = Owned<CFCharacterSetRef>::Adopt(
        CFCharacterSetCreateWithCharactersInString(kCFAllocatorDefault, CFSTR("abcdxy")));
    LimitInputLengthAndCharacters(interface->control(kOther), 0, 4, letters);
    QTest::keyClicks(&field(kOther), "a1bcdx");
    for (const char* pasted : {"xyx", "xy"}) {
        field(kOther).setSelection(1, 2);
        QApplication::clipboard()->setText(pasted);
        QTest::keyClick(&field(kOther), Qt::Key_V, Qt::ControlModifier);
    }
    EXPECT_EQ(field(kOther).text(), "axyd");
    EXPECT_EQ(beeps.take(), 3);
}

}  // namespace
}  // namespace kalmo::test
