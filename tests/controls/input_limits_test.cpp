// Texts that are limited in length and characters, and the dialog that asks for one.
#include "controls/input_limits.h"

#include <QClipboard>
#include <QLineEdit>
#include <QTest>

#include "controls/custom_value_dialog.h"
#include "platform/toolbox/interface.h"
#include "support/beeps.h"
#include "support/modal_driver.h"

namespace kalmo::test {
namespace {

class InputLimits : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(interface.open(), noErr); }

    [[nodiscard]] ControlRef control() const { return interface.control(1); }
    [[nodiscard]] QLineEdit& field() const { return *interface.widget<QLineEdit>(1); }

    CountedBeeps beeps;
    Interface interface { WindowFile(WidgetText("QLineEdit", 1)) };
};

TEST_F(InputLimits, ReplacedTextCountsAndLongInputIsRefusedWhole) {
    LimitInputLengthAndCharacters(control(), 0, 4, nullptr);
    QTest::keyClicks(&field(), "abcde");
    for (const char* text : {"xyz", "xy"}) {
        field().setSelection(1, 2);
        QApplication::clipboard()->setText(text);
        QTest::keyClick(&field(), Qt::Key_V, Qt::ControlModifier);
    }
    EXPECT_EQ(field().text(), "axyd");
    EXPECT_EQ(beeps.take(), 2);
    LimitInputLengthAndCharacters(control(), 0, 0, nullptr);
    QTest::keyClicks(&field(), "free");
    EXPECT_EQ(field().text(), "axyfreed");
}

OSStatus RecordCheck(EventHandlerCallRef, EventRef event, void* record) {
    static_cast<std::vector<UInt32>*>(record)->push_back(GetEventKind(event));
    return noErr;
}

TEST_F(InputLimits, EachInputIsCheckedAndTheSetGoesWithTheField) {
    std::vector<UInt32> checks;
    const EventTypeSpec kinds[] = {{kEventClassInputCheck, kEventInputEmpty},
                                   {kEventClassInputCheck, kEventInputTooShort},
                                   {kEventClassInputCheck, kEventInputLongEnough}};
    InstallControlEventHandler(control(), RecordCheck, 3, kinds, &checks, nullptr);
    const auto digits = Owned<CFCharacterSetRef>::Adopt(
        CFCharacterSetCreateWithCharactersInString(kCFAllocatorDefault, CFSTR("0123456789")));
    const CFIndex references = CFGetRetainCount(digits);
    LimitInputLengthAndCharacters(control(), 0, 10, digits);
    QTest::keyClicks(&field(), "1a");
    EXPECT_EQ(beeps.take(), 1);
    LimitInputLengthAndCharacters(control(), 2, 10, digits);
    QTest::keyClicks(&field(), "2\b\b");
    EXPECT_EQ(checks, (std::vector<UInt32>{kEventInputLongEnough, kEventInputLongEnough,
                                           kEventInputTooShort, kEventInputEmpty}));
    DisposeControl(control());
    EXPECT_EQ(CFGetRetainCount(digits), references);
}

TEST(CustomValueDialog, AsksForATextLongEnough) {
    const CountedBeeps beeps;
    ModalDriver driver;
    const auto bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    CFStringRef text = CFSTR("Red");
    SInt32 button = 0;
    driver.expect([](QWidget& window) {
        auto& field = *window.findChild<QLineEdit*>();
        EXPECT_EQ(field.selectedText(), "Red");
        QTest::keyClicks(&field, "B\r");
        EXPECT_TRUE(window.isVisible()) << "too short";
        QTest::keyClicks(&field, "lue!!!\r");
    });
    EXPECT_EQ(RunModalCustomValueDialog(bundle, 2, 5, &text, &button), noErr);
    EXPECT_EQ(button, kCustomValueOK);
    const auto given = Owned<CFStringRef>::Adopt(text);
    EXPECT_EQ(CFStringToUTF8(given), "Blue!");
    driver.expect([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
    RunModalCustomValueDialog(bundle, 2, 5, &text, &button);
    EXPECT_EQ(button, kCustomValueCancel);
    EXPECT_EQ(text, nullptr);
    EXPECT_TRUE(driver.done());
}

}  // namespace
}  // namespace kalmo::test
