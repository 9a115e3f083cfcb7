// Popups, and buttons with a menu.
#include "toolbox/menus.h"

#include "interface.h"

namespace kalmo::test {
namespace {

void Append(MenuRef menu, const char* text, UInt32 attributes = kMenuItemPlain,
            UInt32 command = 0) {
    AppendMenuItemTextWithCFString(menu, CFStringMakeConstant(text), attributes, command, nullptr);
}

struct Menus : testing::Test {
    explicit Menus(const char* type)
        : interface(WindowFile(Geometry(0, 0, 200, 100) + WidgetText(type, 1))) {
        interface.windowWidget()->show();
    }

    Interface interface;
    ControlRef control = interface.control(1);
    MenuRef menu = GetControlPopupMenu(control);
};

/// A popup from an interface file with the items One, -, Three (disabled), Four.
struct Popup : Menus {
    Popup() : Menus("QComboBox") {
        Append(menu, "One");
        AppendMenuItemTextWithCFString(menu, nullptr, kMenuItemSeparator, 0, nullptr);
        Append(menu, "Three", kMenuItemDisabled);
        Append(menu, "Four");
    }
    [[nodiscard]] QComboBox& box() { return *interface.widget<QComboBox>(1); }

    const Heard hits{control};
};

TEST_F(Popup, KeysOpenItAfterItAskedForItsItemsAndPassOverWhatCannotBeChosen) {
    const EventTypeSpec populate = {kEventClassMenu, kEventMenuPopulate};
    const auto addFive = [](EventHandlerCallRef, EventRef event, void*) -> OSStatus {
        return AppendMenuItemTextWithCFString(GetControlPopupMenu(GetEventControl(event)),
                                              CFSTR("Five"), kMenuItemPlain, 0, nullptr);
    };
    InstallControlEventHandler(control, addFive, 1, &populate, nullptr, nullptr);
    const std::tuple<Qt::Key, Qt::Key, SInt32> rows[] = {{Qt::Key_Space, Qt::Key_End, 5},
                                                         {Qt::Key_Home, Qt::Key_Home, 1},
                                                         {Qt::Key_Down, Qt::Key_Down, 4}};
    for (const auto& [opens, moves, chosen] : rows) {
        const SInt32 before = GetControl32BitValue(control);
        QTest::keyClick(&box(), opens);
        ASSERT_TRUE(box().view()->isVisible());
        EXPECT_EQ(GetControl32BitValue(control), before) << "the key chooses nothing";
        QTest::keyClick(box().view(), moves);
        QTest::keyClick(box().view(), Qt::Key_Return);
        EXPECT_EQ(GetControl32BitValue(control), chosen);
    }
    EXPECT_EQ(hits.record, "hhh");
    SetControl32BitValue(control, 2);
    EXPECT_EQ(GetControl32BitValue(control), 4) << "not by code either";
}

/// A menu button with the items Size > (A & B, C without a command), two separators, Inserter. Its
/// owner checks Inserter when the menu opens and builds it anew at each choice.
struct Button : Menus {
    Button() : Menus("MenuButton") {
        build();
        const EventTypeSpec types[] = {kHit, kCommand, {kEventClassMenu, kEventMenuPopulate}};
        InstallControlEventHandler(control, Record, 3, types, this, nullptr);
    }

    void build() {
        DeleteMenuItems(menu, 1, CountMenuItems(menu));
        submenu = CreateNewMenu();
        Append(menu, "Size", kMenuItemPlain, 'Ssiz');
        Append(submenu, "A & B", kMenuItemPlain, 'Ssiz');
        Append(submenu, "C");
        EXPECT_EQ(SetMenuItemHierarchicalMenu(menu, 1, submenu), noErr);
        for (int line = 0; line < 2; ++line) Append(menu, "-", kMenuItemSeparator);
        Append(menu, "Inserter", kMenuItemPlain, 'Ssrc');
    }

    /// Choices: m or s for menu or submenu, the item, the command's last character.
    static OSStatus Record(EventHandlerCallRef, EventRef event, void* data) {
        auto& self = *static_cast<Button*>(data);
        MenuRef menu = nullptr;
        UInt16 item = 0;
        if (GetEventClass(event) == kEventClassMenu) {
            CheckMenuItem(self.menu, 4, true);
            return noErr;
        }
        EXPECT_TRUE(GetEventMenuItem(event, &menu, &item));
        self.record += (menu == self.submenu ? "s" : "m") + std::to_string(item) +
                       static_cast<char>(GetEventCommand(event));
        self.build();
        EXPECT_FALSE(GetEventMenuItem(event, &menu, &item)) << "the item is gone";
        return noErr;
    }

    [[nodiscard]] QPushButton& button() { return *interface.widget<QPushButton>(1); }

    MenuRef submenu = nullptr;
    std::string record;
    ModalDriver driver;
};

TEST_F(Button, KeysOpenTheMenuAndChooseInIt) {
    const std::pair<Qt::Key, std::vector<Qt::Key>> presses[] = {
        {Qt::Key_Space, {Qt::Key_Up, Qt::Key_Return}},
        {Qt::Key_Return, {Qt::Key_Down, Qt::Key_Right, Qt::Key_Return}},
        {Qt::Key_Down, {Qt::Key_Down, Qt::Key_Right, Qt::Key_Down, Qt::Key_Return}},
        {Qt::Key_Down, {Qt::Key_Escape}},
    };
    for (const auto& [opens, keys] : presses) {
        driver.expect([&keys](QWidget&) {
            for (const Qt::Key key : keys) QTest::keyClick(QApplication::activePopupWidget(), key);
        });
        QTest::keyClick(&button(), opens);
        ASSERT_TRUE(QTest::qWaitFor([this] { return driver.done() && !button().isDown(); }));
    }
    EXPECT_EQ(record, "m4cs1z");
}

TEST_F(Button, ShowsWhatItsOwnerMadeAboveWhereNoRoomIsBelow) {
    QWidget& window = *interface.windowWidget();
    window.move(20, window.screen()->geometry().bottom() - 60);
    driver.expect([this](QWidget& shown) {
        const QList<QAction*> actions = shown.actions();
        EXPECT_EQ(actions[0]->menu()->actions()[0]->text(), "A && B");
        EXPECT_TRUE(actions[2]->isSeparator());
        EXPECT_TRUE(actions[3]->isChecked());
        const QRect place(button().mapToGlobal(QPoint()), button().size());
        EXPECT_FALSE(shown.geometry().intersects(place));
        QTest::mouseClick(&shown, Qt::LeftButton, {},
                          static_cast<QMenu&>(shown).actionGeometry(actions[3]).center());
    });
    QTest::mousePress(&button(), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([this] { return driver.done() && record == "m4c"; }));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&button())->role(), QAccessible::ButtonMenu);
}

}  // namespace
}  // namespace kalmo::test
