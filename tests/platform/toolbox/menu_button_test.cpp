#include <QAccessible>
#include <QMenu>
#include <QTest>

#include "interface.h"
#include "support/modal_driver.h"
#include "toolbox/menus.h"

namespace kalmo::test {
namespace {

/// A menu button with the items Size > (A & B, C), two separators, Inserter.
class Button : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(interface.open(), noErr);
        Rebuild();
        const EventTypeSpec types[] = {kHit, kCommand};
        InstallWindowEventHandler(interface.window, Record, 2, types, this, nullptr);
        interface.windowWidget()->show();
    }

    void Rebuild() {
        DeleteMenuItems(menu(), 1, CountMenuItems(menu()));
        Append(menu(), "Size", kMenuItemPlain, 'Ssiz');
        submenu = CreateNewMenu();
        Append(submenu, "A & B", kMenuItemPlain, 'Ssiz');
        Append(submenu, "C", kMenuItemPlain, 0);
        ASSERT_EQ(SetMenuItemHierarchicalMenu(menu(), 1, submenu), noErr);
        Append(menu(), "-", kMenuItemSeparator, 0);
        Append(menu(), "-", kMenuItemSeparator, 0);
        Append(menu(), "Inserter", kMenuItemPlain, 'Ssrc');
    }

    static void Append(MenuRef menu, const char* text, UInt32 attributes, UInt32 command) {
        AppendMenuItemTextWithCFString(menu, CFStringMakeConstant(text), attributes, command,
                                       nullptr);
    }

    /// Commands as "menu item", m for the button's menu and s for the submenu; a hit is "h".
    static OSStatus Record(EventHandlerCallRef, EventRef event, void* data) {
        auto& self = *static_cast<Button*>(data);
        MenuRef menu = nullptr;
        UInt16 item = 0;
        const Boolean isChoice = GetEventMenuItem(event, &menu, &item);
        self.record += !isChoice ? "h" : menu == self.submenu ? "s" : "m";
        self.record += std::to_string(item) + " ";
        self.command = GetEventCommand(event);
        if (self.rebuilds) {
            self.Rebuild();
            EXPECT_FALSE(GetEventMenuItem(event, &menu, &item)) << "the item is gone";
        }
        return noErr;
    }

    [[nodiscard]] ControlRef control() { return interface.control(1); }
    [[nodiscard]] MenuRef menu() { return GetControlPopupMenu(control()); }
    [[nodiscard]] QPushButton& button() { return *interface.widget<QPushButton>(1); }

    Interface interface { WindowFile(Geometry(0, 0, 200, 100) + WidgetText("MenuButton", 1)) };
    MenuRef submenu = nullptr;
    std::string record;
    UInt32 command = 0;
    bool rebuilds = false;
    ModalDriver driver;
};

TEST_F(Button, KeysOpenTheMenuAndChooseInIt) {
    rebuilds = true;
    const struct {
        const char* why;
        Qt::Key opens;
        std::vector<Qt::Key> keys;
        const char* record;
        UInt32 command;
    } cases[] = {
        {"past both separators", Qt::Key_Space, {Qt::Key_Up, Qt::Key_Return}, "m4 ", 'Ssrc'},
        {"in the submenu",
         Qt::Key_Return,
         {Qt::Key_Down, Qt::Key_Right, Qt::Key_Return},
         "s1 ",
         'Ssiz'},
        {"an item without command",
         Qt::Key_Down,
         {Qt::Key_Down, Qt::Key_Right, Qt::Key_Down, Qt::Key_Return},
         "",
         0},
        {"nothing", Qt::Key_Down, {Qt::Key_Escape}, "", 0},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        record.clear();
        command = 0;
        driver.expect([&row](QWidget&) {
            for (const Qt::Key key : row.keys) {
                QTest::keyClick(QApplication::activePopupWidget(), key);
            }
        });
        QTest::keyClick(&button(), row.opens);
        ASSERT_TRUE(QTest::qWaitFor([this] { return driver.done() && !button().isDown(); }));
        EXPECT_EQ(record, row.record);
        EXPECT_EQ(command, row.command);
    }
    EXPECT_EQ(driver.faults(), QStringList());
}

TEST_F(Button, MouseOpensWhatTheOwnerMakesThenBelowTheButton) {
    const EventTypeSpec populate = {kEventClassMenu, kEventMenuPopulate};
    InstallControlEventHandler(
        control(),
        [](EventHandlerCallRef, EventRef event, void*) -> OSStatus {
            const MenuRef menu = GetControlPopupMenu(GetEventControl(event));
            CheckMenuItem(menu, 4, !IsMenuItemChecked(menu, 4));
            DisableMenuItem(menu, 1);
            return noErr;
        },
        1, &populate, nullptr, nullptr);
    QWidget& window = *interface.windowWidget();
    window.move(20, window.screen()->geometry().bottom() - 60);
    driver.expect([this](QWidget& shown) {
        const QList<QAction*> actions = shown.actions();
        ASSERT_EQ(actions.size(), 4);
        EXPECT_EQ(actions[0]->menu()->actions()[0]->text(), "A && B");
        EXPECT_FALSE(actions[0]->isEnabled());
        EXPECT_FALSE(actions[0]->isCheckable());
        EXPECT_TRUE(actions[1]->isSeparator());
        EXPECT_TRUE(actions[3]->isChecked());
        const QRect place(button().mapToGlobal(QPoint()), button().size());
        EXPECT_FALSE(shown.geometry().intersects(place)) << "above, where no room is below";
        QTest::mouseClick(&shown, Qt::LeftButton, {},
                          static_cast<QMenu&>(shown).actionGeometry(actions[3]).center());
    });
    QTest::mousePress(&button(), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([this] { return driver.done() && !record.empty(); }));
    EXPECT_EQ(record, "m4 ");
}

TEST_F(Button, ChoicesByCodeAreThoseAUserCouldMake) {
    const MenuRef other = CreateNewMenu();
    Append(other, "x", kMenuItemPlain, 'Ssiz');
    SimulateMenuChoice(control(), other, 1);
    SimulateMenuChoice(control(), menu(), 1);
    SimulateMenuChoice(control(), menu(), 2);
    SimulateMenuChoice(control(), menu(), 9);
    EXPECT_EQ(record, "") << "not its menu, a submenu's title, a separator, no item";
    SimulateMenuChoice(control(), submenu, 1);
    EXPECT_EQ(record, "s1 ");
    DisableMenuItem(menu(), 1);
    SimulateMenuChoice(control(), submenu, 1);
    DisableControl(control());
    SimulateMenuChoice(control(), menu(), 4);
    EXPECT_EQ(record, "s1 ");
    DisposeMenu(other);
}

TEST_F(Button, SubmenusBelongToTheirItem) {
    const MenuRef inner = CreateNewMenu();
    const QPointer<QObject> watched = reinterpret_cast<QObject*>(inner);
    Append(inner, "x", kMenuItemPlain, 0);
    EXPECT_EQ(SetMenuItemHierarchicalMenu(submenu, 2, inner), noErr);
    EXPECT_EQ(SetMenuItemHierarchicalMenu(submenu, 2, inner), noErr) << "there already";
    EXPECT_EQ(SetMenuItemHierarchicalMenu(submenu, 1, inner), paramErr) << "in two places";
    EXPECT_EQ(SetMenuItemHierarchicalMenu(inner, 1, submenu), paramErr) << "in itself";
    DisposeMenu(inner);
    EXPECT_EQ(GetMenuItemHierarchicalMenu(submenu, 2), inner) << "not its maker's any more";
    DeleteMenuItem(menu(), 1);
    EXPECT_EQ(watched, nullptr);
}

TEST_F(Button, IsAButtonWithAMenuForAssistiveTechnology) {
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&button());
    EXPECT_EQ(seen->role(), QAccessible::ButtonMenu);
    EXPECT_TRUE(seen->state().hasPopup);
    EXPECT_EQ(GetControl32BitValue(control()), 0);
}

}  // namespace
}  // namespace kalmo::test
