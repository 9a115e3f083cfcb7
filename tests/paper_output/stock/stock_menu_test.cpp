// The menu of a paper, as a user walks through it.
#include "paper_output/stock/stock_menu.h"

#include "paper_output/stock/papers.h"
#include "platform/toolbox/interface.h"

namespace kalmo::test {
namespace {

/// "text=value" of each item, "*" before a marked one, a submenu's items in brackets.
std::string Outline(MenuRef menu) {
    std::string outline;
    for (UInt16 item = 1; item <= CountMenuItems(menu); ++item) {
        const MenuRef submenu = GetMenuItemHierarchicalMenu(menu, item);
        ItemReference value = 0;
        GetMenuItemRefCon(menu, item, &value);
        if (item > 1) outline += " ";
        if (IsMenuItemChecked(menu, item)) outline += "*";
        outline += IsMenuItemSeparator(menu, item)
                       ? "|"
                       : TakeText(CopyMenuItemTextAsCFString(menu, item));
        if (submenu) outline += "(" + Outline(submenu) + ")";
        if (value) outline += value == kUnset ? "=unset" : "=" + std::to_string(value);
    }
    return outline;
}

const _InstalledFeatureMap kFeatures[] = {{CFSTR("PostPrintInserterKey")}, {}};

struct StockMenu : PaperTest {
    ~StockMenu() override { FinalizeStockMenuButton(button(), &data); }

    void initialize(JobContext context) {
        FinalizeStockMenuButton(button(), &data);
        data.context = context;
        ASSERT_EQ(InitializeStockMenuButton(button(), &data), noErr);
    }
    [[nodiscard]] ControlRef button() const { return interface.control(1); }
    [[nodiscard]] MenuRef menu() const { return GetControlPopupMenu(button()); }
    /// Item `item` of the submenu of item `in` (0: of the button's own menu).
    void choose(UInt16 in, UInt16 item) {
        SimulateMenuChoice(button(), in ? GetMenuItemHierarchicalMenu(menu(), in) : menu(), item);
    }

    Interface interface { WindowFile(WidgetText("MenuButton", 1)) };
    Stock stock;
    int changes = 0;
    StockMenuHandlerData data{
        .bundle = bundle, .ppd = printer.ppd(), .stock = &stock, .changed = [this] { ++changes; }};
};

TEST_F(StockMenu, DependsOnWhatThePaperIsFor) {
    LoadInstallableOptions(printer.ppd(), kFeatures);
    const std::string special =
        "Size(*Same as the job=unset US Letter=1 A4=4 Custom=75) "
        "Color(Same as the job=unset *White=1 Blue=2) "
        "Type(*Same as the job=unset Plain=1 Tabs=24 Film=2) | |";
    const std::pair<JobContext, std::string> rows[] = {
        {JobContext::job,
         "Color(*White=1 Blue=2 Any=22) Type(Default=23 Plain=1 Any=34 Tabs=24 Film=2) | |"},
        {JobContext::cover, special + " Post-print inserter=10"},
        {JobContext::insert, special + " Post-print inserter=10"},
        {JobContext::exception, special},
    };
    for (const auto& [context, outline] : rows) {
        initialize(context);
        EXPECT_EQ(Outline(menu()), outline);
    }
    UnloadInstallableOptions();
    initialize(JobContext::insert);
    EXPECT_EQ(Outline(menu()), special) << "without an inserter";
}

TEST_F(StockMenu, ChoicesChangeTheStockAndMoveTheMarks) {
    LoadInstallableOptions(printer.ppd(), kFeatures);
    initialize(JobContext::insert);
    choose(0, 6);
    EXPECT_EQ(stock.source(), kStockSourceInserter);
    stock.setCustomName(CFSTR("Gloss 90"));
    stock.setCustomNameOnly(true);
    choose(2, 3);
    EXPECT_EQ(stock.color(), 2);
    EXPECT_EQ(stock.source(), kUnset) << "a paper undoes the inserter";
    EXPECT_TRUE(stock.customNameOnly());
    choose(3, 4);
    choose(1, 3);
    EXPECT_FALSE(stock.customNameOnly());
    EXPECT_EQ(CFStringGetLength(stock.customName()), 0);
    EXPECT_EQ(Outline(menu()),
              "Size(Same as the job=unset US Letter=1 *A4=4 Custom=75) "
              "Color(Same as the job=unset White=1 Blue=2) "
              "Type(Same as the job=unset Plain=1 Tabs=24 *Film=2) | | Post-print inserter=10");
    EXPECT_EQ(changes, 4);
}

}  // namespace
}  // namespace kalmo::test
