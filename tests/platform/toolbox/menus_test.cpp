#include <QTest>

#include "interface.h"
#include "toolbox/menus.h"

namespace kalmo::test {
namespace {

/// A popup from an interface file with the items One, -, Three (disabled), Four.
class Popup : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(interface.open(), noErr);
        Append("One", kMenuItemPlain);
        AppendMenuItemTextWithCFString(menu(), nullptr, kMenuItemSeparator, 0, nullptr);
        Append("Three", kMenuItemDisabled);
        Append("Four", kMenuItemPlain);
        InstallControlEventHandler(control(), Recorder::Handle, 1, &kHit, &recorder, nullptr);
    }

    void Append(const char* text, UInt32 attributes) {
        AppendMenuItemTextWithCFString(menu(), CFStringMakeConstant(text), attributes, 0, nullptr);
    }
    [[nodiscard]] std::string text(UInt16 item) {
        return CFStringToUTF8(Owned<CFStringRef>::Adopt(CopyMenuItemTextAsCFString(menu(), item)));
    }
    [[nodiscard]] ControlRef control() { return interface.control(1); }
    [[nodiscard]] MenuRef menu() { return GetControlPopupMenu(control()); }
    [[nodiscard]] QComboBox& box() { return *interface.widget<QComboBox>(1); }

    Interface interface { WindowFile(Geometry(0, 0, 200, 100) + WidgetText("QComboBox", 1)) };
    std::string record;
    Recorder recorder{'h', &record};
};

TEST_F(Popup, KeysPassOverWhatCannotBeChosen) {
    interface.windowWidget()->show();
    QTest::keyClick(&box(), Qt::Key_Down);
    EXPECT_EQ(GetControl32BitValue(control()), 1) << "the key opens the list and chooses nothing";
    QTest::keyClick(box().view(), Qt::Key_Down);
    QTest::keyClick(box().view(), Qt::Key_Return);
    EXPECT_EQ(GetControl32BitValue(control()), 4);
    QTest::keyClick(&box(), Qt::Key_Home);
    QTest::keyClick(box().view(), Qt::Key_Return);
    EXPECT_EQ(GetControl32BitValue(control()), 1);
    EXPECT_EQ(record, "hh");
    SetControl32BitValue(control(), 2);
    EXPECT_EQ(GetControl32BitValue(control()), 1) << "not by code either";
}

TEST_F(Popup, OpensWithTheKeyboardAfterAskingForItsItems) {
    const EventTypeSpec populate = {kEventClassMenu, kEventMenuPopulate};
    InstallControlEventHandler(
        control(),
        [](EventHandlerCallRef, EventRef event, void*) -> OSStatus {
            return AppendMenuItemTextWithCFString(GetControlPopupMenu(GetEventControl(event)),
                                                  CFSTR("Five"), kMenuItemPlain, 0, nullptr);
        },
        1, &populate, nullptr, nullptr);
    interface.windowWidget()->show();
    QTest::keyClick(&box(), Qt::Key_Space);
    ASSERT_TRUE(box().view()->isVisible());
    EXPECT_EQ(CountMenuItems(menu()), 5);
    QTest::keyClick(box().view(), Qt::Key_End);
    QTest::keyClick(box().view(), Qt::Key_Return);
    EXPECT_EQ(GetControl32BitValue(control()), 5);
    EXPECT_EQ(record, "h");
}

TEST_F(Popup, WheelGoesToTheViewBehind) {
    interface.windowWidget()->show();
    box().setFocus();
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&box(), &wheel);
    EXPECT_FALSE(wheel.isAccepted());
    EXPECT_EQ(GetControl32BitValue(control()), 1);
}

TEST_F(Popup, ReferencesAndCommandsBelongToItems) {
    ItemReference reference = 1;
    SetMenuItemRefCon(menu(), 4, -6);
    SetMenuItemRefCon(menu(), 0, reinterpret_cast<ItemReference>(this));
    SetMenuItemCommandID(menu(), 4, 'KWmB');
    DeleteMenuItem(menu(), 1);
    UInt32 command = 0;
    GetMenuItemCommandID(menu(), 3, &command);
    EXPECT_EQ(command, UInt32{'KWmB'});
    GetMenuItemRefCon(menu(), 3, &reference);
    EXPECT_EQ(reference, -6);
    GetMenuItemRefCon(menu(), 0, &reference);
    EXPECT_EQ(reference, reinterpret_cast<ItemReference>(this));
    EXPECT_EQ(GetMenuItemRefCon(menu(), 4, &reference), paramErr);
}

TEST_F(Popup, CommandsTellTheItemThatSentThem) {
    SetMenuItemCommandID(menu(), 4, 'KWmB');
    UInt16 chosen = 0;
    const auto note = [](EventHandlerCallRef, EventRef event, void* item) -> OSStatus {
        return GetEventMenuItem(event, nullptr, static_cast<UInt16*>(item)) ? noErr : paramErr;
    };
    InstallControlEventHandler(control(), note, 1, &kCommand, &chosen, nullptr);
    QTest::keyClick(&box(), Qt::Key_End);
    QTest::keyClick(box().view(), Qt::Key_Return);
    EXPECT_EQ(chosen, 4);
}

TEST_F(Popup, ItemsGoInAndOutAnywhere) {
    InsertMenuItemTextWithCFString(menu(), CFSTR("First"), 0, kMenuItemPlain, 0);
    InsertMenuItemTextWithCFString(menu(), CFSTR("-"), 99, kMenuItemPlain, 0);
    EXPECT_EQ(text(1), "First");
    EXPECT_EQ(text(6), "-");
    EXPECT_FALSE(IsMenuItemSeparator(menu(), 6));
    EXPECT_TRUE(IsMenuItemSeparator(menu(), 3));
    EXPECT_EQ(GetControl32BitValue(control()), 2) << "the choice moves with its item";
    EXPECT_EQ(DeleteMenuItems(menu(), 7, 1), paramErr);
    EXPECT_EQ(DeleteMenuItems(menu(), 2, 0xFFFFFFFF), noErr);
    EXPECT_EQ(CountMenuItems(menu()), 1);
    DeleteMenuItems(menu(), 1, 1);
    EXPECT_EQ(DeleteMenuItems(menu(), 1, CountMenuItems(menu())), noErr) << "an empty menu";
    EXPECT_EQ(record, "");
}

}  // namespace
}  // namespace kalmo::test
