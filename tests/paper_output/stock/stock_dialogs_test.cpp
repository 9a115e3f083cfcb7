// The dialogs for a paper of one's own size and for separators.
#include "paper_output/stock/custom_size_dialog.h"
#include "paper_output/stock/separators.h"
#include "settings/ppd_file.h"
#include "support/beeps.h"
#include "toolbox/menus.h"

namespace kalmo::test {
namespace {

void Press(QWidget& window, const char* button) {
    QTest::mouseClick(window.findChild<QPushButton*>(button), Qt::LeftButton);
}

struct StockDialogs : testing::Test {
    /// Checks what the field shows, types into it and presses OK, and Cancel where that beeps.
    SInt32 enterSize(const char* name, const char* shown, const char* typed) {
        driver.expect([=, this](QWidget& window) {
            auto& field = *window.findChild<QLineEdit*>(name);
            EXPECT_EQ(field.text(), shown);
            field.setFocus();
            field.selectAll();
            QTest::keyClicks(&field, typed);
            Press(window, "sizeOK");
            if (beeps.take() > 0) Press(window, "sizeCancel");
        });
        return RunModalCustomSizeDialog(bundle, &stock);
    }

    Owned<CFBundleRef> bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    CountedBeeps beeps;
    ModalDriver driver;
    Stock stock;
};

TEST_F(StockDialogs, SizeIsAskedInTheUsersUnitAndStaysWhereItIsLeftAlone) {
    setenv("LC_ALL", "en_US.UTF-8", 1);
    stock.setWidth(2155);  // 8.48 inches, which are 2154
    EXPECT_EQ(enterSize("length", "11.00", "10.25"), kModalOK);
    EXPECT_EQ(std::pair(stock.width(), stock.length()), std::pair(2155, 2604));
    setenv("LC_ALL", "de_DE.UTF-8", 1);
    EXPECT_EQ(enterSize("width", "215,5", "99,9"), kModalOK);
    EXPECT_EQ(std::pair(stock.width(), stock.length()), std::pair(999, 2604));
}

TEST_F(StockDialogs, SizeThatThePrinterRefusesIsRefused) {
    const PrinterWithPPD printer(
        "*CustomPageSize True: \"pop\"\n*ParamCustomPageSize Width: 1 points 279 936\n"
        "*ParamCustomPageSize Height: 2 points 420 1000.5\n" +
        PPDOption("PageSize", "A4", {"A4"}));
    setenv("LC_ALL", "de_DE.UTF-8", 1);
    EXPECT_EQ(enterSize("length", "297,0", "353"), kModalCancel);
    EXPECT_EQ(stock.size(), kUnset);
    EXPECT_EQ(enterSize("length", "297,0", "352,9"), kModalOK);
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
            Press(window, button);
        });
        EXPECT_EQ(RunModalSeparatorsDialog(bundle, &separators),
                  takenOver ? kModalOK : kModalCancel);
        EXPECT_EQ(separators.option, takenOver ? kBlankSeparators : kNoSeparators);
        EXPECT_EQ(separators.stock.color() == kStockColorWhite, !takenOver);
    }
}

}  // namespace
}  // namespace kalmo::test
