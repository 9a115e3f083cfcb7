// The dialogs for a paper of one's own size and for separators.
#include "paper_output/dialog_test.h"
#include "paper_output/stock/custom_size_dialog.h"
#include "paper_output/stock/separators.h"
#include "settings/ppd_file.h"
#include "support/beeps.h"
#include "toolbox/menus.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kWidth = 101, kLength = 111;

struct StockDialogs : DialogTest {
    /// Checks what the field shows, types into it and presses OK, and Cancel where that beeps.
    SInt32 enterSize(SInt32 field, const char* shown, const char* typed) {
        driver.expect([=, this](QWidget& window) {
            EXPECT_EQ(Text(window, field), shown);
            Type(window, field, typed);
            Press(window, 10);
            if (beeps.take() == 0) return;
            EXPECT_EQ(window.focusWidget()->accessibleDescription(), fault);
            Press(window, 11);
        });
        return RunModalCustomSizeDialog(bundle, &stock);
    }

    CountedBeeps beeps;
    Stock stock;
    QString fault;  // what a field is described by that the focus comes back to
};

TEST_F(StockDialogs, SizeIsAskedInTheUsersUnitAndStaysWhereItIsLeftAlone) {
    setenv("LC_ALL", "en_US.UTF-8", 1);
    stock.setWidth(2155);  // 8.48 inches, which are 2154
    EXPECT_EQ(enterSize(kLength, "11.00", "10.25"), kModalOK);
    EXPECT_EQ(std::pair(stock.width(), stock.length()), std::pair(2155, 2604));
    setenv("LC_ALL", "de_DE.UTF-8", 1);
    EXPECT_EQ(enterSize(kWidth, "215,5", "99,9"), kModalOK);
    EXPECT_EQ(std::pair(stock.width(), stock.length()), std::pair(999, 2604));
}

TEST_F(StockDialogs, SizeThatThePrinterRefusesIsRefused) {
    const PrinterWithPPD printer(
        "*CustomPageSize True: \"pop\"\n*ParamCustomPageSize Width: 1 points 279 936\n"
        "*ParamCustomPageSize Height: 2 points 420 1000.5\n" +
        PPDOption("PageSize", "A4", {"A4"}));
    setenv("LC_ALL", "de_DE.UTF-8", 1);
    fault = "Geben Sie eine Zahl von 148,2 bis 352,9 ein.";
    EXPECT_EQ(enterSize(kLength, "297,0", "353"), kModalCancel);
    EXPECT_EQ(stock.size(), kUnset);
    EXPECT_EQ(enterSize(kLength, "297,0", "352,9"), kModalOK);
}

/// Chooses blank separators of the printer's second colour.
void ChooseSeparators(QWidget& window) {
    auto& menu = *window.findChild<QPushButton*>("stock");
    EXPECT_FALSE(menu.isEnabled());
    auto& option = *window.findChild<QComboBox*>("option");
    Pick(option, option.itemText(1));
    EXPECT_TRUE(menu.isEnabled());
    const ControlRef button = ControlFromWidget(&menu);
    SimulateMenuChoice(button, GetMenuItemHierarchicalMenu(GetControlPopupMenu(button), 2), 3);
    EXPECT_EQ(window.findChild<QLabel*>("stockSummary")->text(), "Color: Blue");
}

TEST_F(StockDialogs, SeparatorsAreTakenOverByOKOnly) {
    const PrinterWithPPD printer(PPDOption("MediaColor", "White", {"White", "Blue"}));
    Separators separators;
    for (const char* button : {"separatorsCancel", "separatorsOK"}) {
        const bool takenOver = button == std::string("separatorsOK");
        driver.expect([button](QWidget& window) {
            ChooseSeparators(window);
            window.findChild<QPushButton*>(button)->click();
        });
        EXPECT_EQ(RunModalSeparatorsDialog(bundle, &separators),
                  takenOver ? kModalOK : kModalCancel);
        EXPECT_EQ(separators.option, takenOver ? kBlankSeparators : kNoSeparators);
        EXPECT_EQ(separators.stock.color() == kStockColorWhite, !takenOver);
    }
}

}  // namespace
}  // namespace kalmo::test
