// A booklet is chosen in one panel, and its settings belong to another.
#include "shell/product.h"
#include "toolbox/menus.h"

namespace kalmo::test {
namespace {

bool BookletInTicket(const PaneDialog& dialog) {
    CFBooleanRef on = nullptr;
    PMTicketGetCFBoolean(dialog.ticket, CFSTR("com.kalmo.print.BookletLayout"), &on);
    return CFBooleanGetValue(on);
}

void GoTwice(PaneDialog& dialog, UInt32 command) { dialog.send(command), dialog.send(command); }

void ChooseOneStaple(PaneDialog& dialog) {
    const ControlRef button =
        ControlFromWidget(FindControl<QPushButton>(dialog.window, 'KPpo', 128));
    const MenuRef menu = GetControlPopupMenu(button);
    for (UInt16 item = CountMenuItems(menu); item > 0; --item) {
        UInt32 command = 0;
        GetMenuItemCommandID(menu, item, &command);
        if (command == 'Stp1') return SimulateMenuChoice(button, menu, item);
    }
    ADD_FAILURE() << "no staples";
}

TEST(Booklet, ChosenInItsPanelReachesPaperOutputAndAStapleThereEndsIt) {
    InstallPresence(WindowPresence());
    ModalDriver driver;
    PaneDialog dialog(CreateInstance());
    ASSERT_EQ(dialog.initialize(), noErr);
    ASSERT_EQ(dialog.open(), noErr);
    auto* const state = FindControl<QLabel>(dialog.window, 'KPDE', 1708);
    auto* const sides = FindControl<QComboBox>(dialog.window, 'KPpo', 110);
    ASSERT_TRUE(state && sides);
    GoTwice(dialog, 'KFup');
    driver.expect([](QWidget& editor) {
        FindControl<QCheckBox>(editor, 'KPDE', 301)->click();
        FindControl<QPushButton>(editor, 'KPDE', 901)->click();
    });
    FindControl<QPushButton>(dialog.window, 'KPDE', 1707)->click();
    EXPECT_EQ(state->text(), "Pages laid out as a booklet");
    EXPECT_TRUE(BookletInTicket(dialog));
    GoTwice(dialog, 'KFdn');
    EXPECT_FALSE(sides->isEnabled());
    EXPECT_EQ(sides->currentText(), "2-sided");
    ChooseOneStaple(dialog);
    EXPECT_TRUE(sides->isEnabled());
    EXPECT_FALSE(BookletInTicket(dialog));
    GoTwice(dialog, 'KFup');
    EXPECT_EQ(state->text(), "No booklet");
}

}  // namespace
}  // namespace kalmo::test
