// Numbers typed, stepped and slid, in the user's locale.
#include "controls/spin_control.h"

#include <QLineEdit>
#include <QSlider>
#include <QTest>

#include "platform/toolbox/interface.h"
#include "support/beeps.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kField = 1, kArrows = 2, kSlider = 3, kOther = 4;
using Sign = SpinControlSetup::Sign;

class SpinControl : public testing::Test {
protected:
    void TearDown() override { setenv("LC_ALL", "C.UTF-8", 1); }

    /// A window on screen, with the focus in the empty field.
    void open(SpinControlSetup setup, const char* locale = "C.UTF-8") {
        setenv("LC_ALL", locale, 1);
        interface = std::make_unique<Interface>(
            WindowFile(WidgetText("QLineEdit", kField) + WidgetText("SpinArrows", kArrows) +
                       WidgetText("QSlider", kSlider) + WidgetText("QLineEdit", kOther)));
        ASSERT_EQ(interface->open(), noErr);
        setup.arrows = kArrows, setup.field = kField, setup.slider = kSlider;
        ASSERT_EQ(SetUpSpinControl(interface->window, 'KPDE', setup), noErr);
        interface->windowWidget()->show();
        QApplication::setActiveWindow(interface->windowWidget());
        field().setFocus();
    }

    [[nodiscard]] QLineEdit& field() const { return *interface->widget<QLineEdit>(kField); }
    [[nodiscard]] ControlRef arrows() const { return interface->control(kArrows); }
    [[nodiscard]] SInt32 value() const { return GetControl32BitValue(arrows()); }
    [[nodiscard]] std::string text() const { return field().text().toStdString(); }

    CountedBeeps beeps;
    std::unique_ptr<Interface> interface;
};

TEST_F(SpinControl, TextStaysAsTypedUntilTheFieldIsLeft) {
    const struct {
        const char* why;
        const char* locale;
        SpinControlSetup setup;
        const char* typed;
        const char* shown;
        SInt32 value;
        bool valid;
        const char* left;
    } rows[] = {
        {"above", "C", {.maximum = 9}, "10", "10", 9, false, "9"},
        {"empty is 0", "C", {.minimum = 1, .maximum = 9}, "7\b", "", 1, false, "1"},
        {"32 bits",
         "C",
         {.maximum = INT32_MAX},
         "5e9999999999",
         "59999999999",
         INT32_MAX,
         false,
         "2147483647"},
        {"no number", "C", {.minimum = -9, .maximum = 9}, "4-", "4-", 4, false, "4"},
        {"other minus", "sv_SE", {.minimum = -9, .maximum = 9}, "-7", "-7", -7, true, "\u22127"},
        {"comma", "de_DE", {.maximum = 999, .decimals = 1}, "1.2,5", "12,5", 125, true, "12,5"},
        {"point", "C", {.maximum = 999, .decimals = 1}, "1,2.5", "12.5", 125, true, "12.5"},
        {"single precision", "C", {.maximum = 99, .decimals = 2}, "0.53", "0.53", 52, true, "0.52"},
        {"not double", "C", {.maximum = 99, .decimals = 2}, "0.29", "0.29", 29, true, "0.29"},
        {"sign", "C", {.maximum = 99, .sign = Sign::angle}, "45", "45", 45, true, "45\u02DA"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        open(row.setup, row.locale);
        QTest::keyClicks(&field(), row.typed);
        EXPECT_EQ(text(), row.shown);
        EXPECT_EQ(value(), row.value);
        EXPECT_EQ(SpinControlIsInputValid(arrows()), row.valid);
        EXPECT_EQ(interface->widget<QSlider>(kSlider)->value(), row.value);
        interface->widget(kOther)->setFocus();
        EXPECT_EQ(text(), row.left);
        EXPECT_TRUE(SpinControlIsInputValid(arrows()));
    }
}

TEST_F(SpinControl, StepsEndAtTheBoundWithABeep) {
    open({.minimum = -5, .maximum = 12, .step = 10, .sign = Sign::percent});
    QWidget& halves = *interface->widget(kArrows);
    QTest::mouseClick(&halves, Qt::LeftButton, {}, {halves.width() / 2, halves.height() / 3});
    EXPECT_EQ(text(), "10%");
    QTest::keyClicks(&field(), "\b\b1");
    EXPECT_EQ(value(), 11) << "the sign is read back";
    QTest::keyClick(&field(), Qt::Key_Up);
    EXPECT_EQ(text(), "12%");
    EXPECT_EQ(beeps.take(), 0);
    QTest::keyClicks(&field(), "\b9");
    QTest::keyClick(&field(), Qt::Key_Up);
    EXPECT_EQ(text(), "12%");
    EXPECT_EQ(beeps.take(), 1);
    for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(&field(), key);
    EXPECT_EQ(value(), -5);
    EXPECT_EQ(beeps.take(), 2) << "Return and Enter";
    QTest::keyClick(interface->widget(kSlider), Qt::Key_End);
    EXPECT_EQ(text(), "12%");
}

TEST_F(SpinControl, RefusedValueChangesTheArrowsOnly) {
    open({.maximum = 10});
    SetSpinControlValue(arrows(), 3);
    EXPECT_EQ(SetSpinControlValue(arrows(), 11), paramErr);
    EXPECT_EQ(beeps.take(), 1);
    EXPECT_EQ(value(), 10);
    EXPECT_EQ(text(), "3");
    EXPECT_TRUE(SpinControlIsInputValid(arrows()));
    EXPECT_EQ(interface->widget<QSlider>(kSlider)->value(), 3);
    DisposeControl(arrows());
    interface->widget(kOther)->setFocus();
    EXPECT_EQ(text(), "3") << "the field outlives its arrows";
}

}  // namespace
}  // namespace kalmo::test
