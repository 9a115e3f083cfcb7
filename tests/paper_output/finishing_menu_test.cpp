// The two finishing menus, by what the printer has.
#include "paper_output/finishing_menu.h"

#include "settings/popup.h"
#include "support/bundles.h"

namespace kalmo::test {
namespace {

using Features = std::vector<CFStringRef>;

/// A printer that has the features, and a menu.
struct FinishingMenu : testing::Test {
    void install(const Features& features) {
        UnloadInstallableOptions();
        table.clear();
        for (const CFStringRef feature : features) table.push_back({feature});
        table.push_back({});
        LoadInstallableOptions(printer.ppd(), table.data());
    }
    /// "text=value" of each item, after "*" when it is checked; a separator has no text.
    std::string items() const {
        std::string all;
        UInt16 item = 0;
        for (const std::string& text : popup.items())
            all += (IsMenuItemChecked(popup.menu, ++item) ? "*" : "") + text + ";";
        return all;
    }
    std::string marked(const Finishing& finishing, bool layout) {
        MarkFinishingMenu(popup.menu, finishing, layout);
        return items();
    }

    PrinterWithPPD printer{""};
    std::vector<_InstalledFeatureMap> table;
    Owned<CFBundleRef> bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    Popup popup;
};

TEST_F(FinishingMenu, OfficeItemsAreThoseThePrinterHas) {
    const std::pair<Features, const char*> rows[] = {
        {{}, ""},
        {{CFSTR("GenericPunchKey"), CFSTR("DualPunchKey")}, "Punched=2;None=1;"},
        {{CFSTR("TriplePunchKey"), CFSTR("QuadruplePunchKey"), CFSTR("BookletFoldKey")},
         "3 holes=4;4 holes=5;Not punched=1;Create a booklet…=0;"},
        {{CFSTR("DualStapleKey"), CFSTR("ZFoldKey"), CFSTR("ZFoldHalfSheetKey")},
         "No staple=1;2 staples=10;=0;Not folded=1;Z fold=20;Z fold to half a sheet=36;"},
    };
    for (const auto& [features, expected] : rows) {
        install(features);
        PopulateOfficeFinishingMenu(popup.menu, bundle);
        EXPECT_EQ(items(), expected);
    }
    EXPECT_TRUE(OfficeFinishing().staple && !OfficeFinishing().punch && OfficeFinishing().fold);
}

TEST_F(FinishingMenu, MarksFollowTheChoiceAndABookletStandsAlone) {
    install({CFSTR("SingleStapleKey"), CFSTR("DualPunchKey"), CFSTR("CFoldKey"),
             CFSTR("BookletFoldKey")});
    PopulateOfficeFinishingMenu(popup.menu, bundle);
    Finishing finishing{.fold = 1, .punch = 3, .custom = {}};
    EXPECT_EQ(marked(finishing, false),
              "*No staple=1;1 staple=5;*2 holes=3;Not punched=1;=0;*Not folded=1;C fold=19;"
              "Create a booklet…=0;");
    const std::string booklet = marked(finishing, true);
    EXPECT_EQ(booklet.find('*'), booklet.find("*Create")) << booklet;
    finishing.option = kOptionBooklet;
    EXPECT_EQ(marked(finishing, false), booklet);
}

TEST_F(FinishingMenu, CoilPunchGoesWithAPaperThatCannotHaveIt) {
    install({CFSTR("GBCAdvancedPunchKey")});
    PopulateOfficeFinishingMenu(popup.menu, bundle);
    const struct {
        SInt32 type, weight;
        bool available;
    } rows[] = {{1, kUnset, true},  {1, 217, false}, {1, 216, true},     {9, 100, false},
                {kUnset, 80, true}, {2, 80, false},  {kUnset, 79, false}};
    for (const auto& row : rows) {
        Stock stock(nullptr);
        stock.setType(row.type);
        stock.setWeight(row.weight);
        Finishing finishing;
        ApplyFinishingCommand(&finishing, kCoilCommand, 0);
        const bool wasEnabled = IsMenuItemEnabled(popup.menu, 1);
        EXPECT_EQ(CoupleCoilPunch(popup.menu, &finishing, stock), !row.available || !wasEnabled);
        EXPECT_EQ(IsMenuItemEnabled(popup.menu, 1), row.available);
        EXPECT_EQ(finishing.option, row.available && wasEnabled ? kOptionCoilPunch : kOptionNone);
        EXPECT_EQ(CoilPunchAvailable(Stock(nullptr)), std::nullopt);
    }
}

TEST_F(FinishingMenu, ProductionItemsStandAroundTwoSeparators) {
    const std::pair<Features, const char*> rows[] = {
        {{CFSTR("1StapleTL"), CFSTR("ZFoldHalfRight")},
         "1 staple…=0;Z fold to half a sheet…=0;Combined finishing…=0;=0;=0;"},
        {{CFSTR("2StaplesL"), CFSTR("4HolePunchL"), CFSTR("BiFoldStapleMultiple")},
         "2 staples…=0;4 holes…=0;Fold…=0;Combined finishing…=0;=0;=0;Create a booklet…=0;"},
        {{CFSTR("BindLeft"), CFSTR("SBM"), CFSTR("Custom"), CFSTR("SlipSheets"), CFSTR("Offset")},
         "Binding…=0;Signature booklet=0;Custom…=0;=0;Slip sheets=0;Offset and subsets…=0;=0;"},
    };
    for (const auto& [features, expected] : rows) {
        install(features);
        PopulateFinishingMenu(popup.menu, bundle);
        EXPECT_EQ(items(), std::string("Printer's default=0;None=0;") + expected);
    }
}

}  // namespace
}  // namespace kalmo::test
