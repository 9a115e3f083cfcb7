// The two finishing menus, by what the printer has.
#include "paper_output/finishing_menu.h"

#include "settings/popup.h"
#include "support/bundles.h"

namespace kalmo::test {
namespace {

/// A printer that has exactly these features.
class FinishingMenu : public testing::Test {
protected:
    void install(std::initializer_list<CFStringRef> features) {
        UnloadInstallableOptions();
        table_.clear();
        for (const CFStringRef feature : features)
            table_.push_back({feature, nullptr, nullptr,
                              CFEqual(feature, CFSTR("DualStapleKey")) ? CFSTR("On") : nullptr, 0});
        table_.push_back({});
        LoadInstallableOptions(printer_.ppd(), table_.data());
    }
    /// "Stp1=5" of each item, with "*" for a checked and "!" for a disabled one; "-" for
    /// separators.
    std::string items() const {
        std::string text;
        for (UInt16 item = 1; item <= CountMenuItems(popup_.menu); ++item) {
            UInt32 command = 0;
            ItemReference value = 0;
            GetMenuItemCommandID(popup_.menu, item, &command);
            GetMenuItemRefCon(popup_.menu, item, &value);
            text += item > 1 ? " " : "";
            if (IsMenuItemSeparator(popup_.menu, item)) {
                text += "-";
                continue;
            }
            for (int shift = 24; shift >= 0; shift -= 8)
                text += static_cast<char>(command >> shift);
            text += "=" + std::to_string(value) +
                    (IsMenuItemChecked(popup_.menu, item) ? "*" : "") +
                    (IsMenuItemEnabled(popup_.menu, item) ? "" : "!");
        }
        return text;
    }
    std::string office() {
        PopulateOfficeFinishingMenu(popup_.menu, bundle_);
        return items();
    }
    std::string production() {
        PopulateFinishingMenu(popup_.menu, bundle_);
        std::string text = items();
        for (std::size_t at = 0; (at = text.find("=0", at)) != std::string::npos;)
            text.erase(at, 2);
        return text;
    }
    std::string marked(const Finishing& finishing, bool layout = false) {
        MarkFinishingMenu(popup_.menu, finishing, layout);
        std::string all = items(), marks;
        for (std::size_t at = 0; (at = all.find('*', at)) != std::string::npos; ++at)
            marks += all.substr(all.rfind(' ', at) + 1, 4) + " ";
        return marks;
    }

    PrinterWithPPD printer_{""};
    std::vector<_InstalledFeatureMap> table_;
    Owned<CFBundleRef> bundle_ = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    Popup popup_;
};

TEST_F(FinishingMenu, OfficeItemsAreThoseThePrinterHas) {
    const struct {
        const char* why;
        std::initializer_list<CFStringRef> features;
        const char* items;
    } rows[] = {
        {"nothing", {}, ""},
        {"one stapler", {CFSTR("SingleStapleKey")}, "Stp0=1 Stp1=5"},
        {"generic punch hides the others",
         {CFSTR("GenericPunchKey"), CFSTR("DualPunchKey"), CFSTR("TriplePunchKey")},
         "HPun=2 Hpn0=1"},
        {"punches by their holes",
         {CFSTR("DualPunchKey"), CFSTR("TriplePunchKey"), CFSTR("QuadruplePunchKey")},
         "Hpn2=3 Hpn3=4 Hpn4=5 Hpn0=1"},
        {"everything else",
         {CFSTR("DualStapleKey"), CFSTR("MultipleStapleKey"), CFSTR("CFoldKey"), CFSTR("ZFoldKey"),
          CFSTR("ZFoldHalfSheetKey"), CFSTR("BookletFoldKey")},
         "Stp0=1 Stp2=10 Stp4=54 - Fld0=1 Cfld=19 Zfld=20 Zfol=36 Bkcr=0"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        install(row.features);
        EXPECT_EQ(office(), row.items);
        for (const std::string& text : popup_.items())
            EXPECT_EQ(text.find("NOT FOUND"), std::string::npos) << text;
    }
    EXPECT_EQ(popup_.items()[0], "No staple=1");
    EXPECT_EQ(popup_.items()[1], "On=10") << "the feature's own label";
    EXPECT_TRUE(OfficeFinishing().staple && !OfficeFinishing().punch && OfficeFinishing().fold);
}

TEST_F(FinishingMenu, NoPunchIsNamedAfterWhatElseThereIs) {
    install({CFSTR("GenericPunchKey")});
    office();
    EXPECT_EQ(popup_.items()[1], "None=1");
    install({CFSTR("GenericPunchKey"), CFSTR("BookletFoldKey")});
    office();
    EXPECT_EQ(popup_.items()[1], "Not punched=1");
}

TEST_F(FinishingMenu, MarksFollowTheChoiceAndABookletStandsAlone) {
    install({CFSTR("SingleStapleKey"), CFSTR("DualStapleKey"), CFSTR("MultipleStapleKey"),
             CFSTR("DualPunchKey"), CFSTR("CFoldKey"), CFSTR("BookletFoldKey")});
    office();
    EXPECT_EQ(marked({.fold = 1, .punch = 1, .custom = {}}), "Stp0 Hpn0 Fld0 ");
    EXPECT_EQ(marked({.singleStaple = 5, .dualStaple = 10, .fold = 19, .punch = 3, .custom = {}}),
              "Stp1 Stp2 Hpn2 Cfld ");
    EXPECT_EQ(marked({.singleStaple = 6, .fold = 36, .punch = 2, .custom = {}}), "")
        << "values of no item";
    EXPECT_EQ(marked({.multipleStaple = 54, .custom = {}}, true), "Bkcr ");
    EXPECT_EQ(marked({.option = kOptionBooklet, .multipleStaple = 54, .custom = {}}), "Bkcr ");
}

TEST_F(FinishingMenu, CoilPunchGoesWithAPaperThatCannotHaveIt) {
    install({CFSTR("GBCAdvancedPunchKey")});
    office();
    Stock stock;
    stock.setWeight(216);
    Finishing finishing;
    ApplyFinishingCommand(&finishing, kCoilCommand, 0);
    EXPECT_FALSE(CoupleCoilPunch(popup_.menu, &finishing, stock));
    EXPECT_EQ(marked(finishing), "Coil ");
    stock.setWeight(217);
    EXPECT_TRUE(CoupleCoilPunch(popup_.menu, &finishing, stock));
    EXPECT_EQ(items(), "Coil=0!");
    EXPECT_TRUE(!finishing.coilPunch && finishing.option == kOptionNone);
    finishing.option = kOptionCoilPunch;  // from a stored ticket, meanwhile
    stock.setWeight(80);
    EXPECT_TRUE(CoupleCoilPunch(popup_.menu, &finishing, stock));
    EXPECT_EQ(items(), "Coil=0");
    EXPECT_EQ(finishing.option, kOptionNone);
}

TEST_F(FinishingMenu, ProductionItemsStandBetweenTwoSeparators) {
    const struct {
        std::initializer_list<CFStringRef> features;
        const char* items;
    } rows[] = {
        {{}, "Pdef None - -"},
        {{CFSTR("1StapleTL"), CFSTR("ZFoldHalfRight")}, "Pdef None Stp1 Zfol FMul - -"},
        {{CFSTR("1StapleB"), CFSTR("2HolePunchB")}, "Pdef None CStp Hpn2 - -"},
        {{CFSTR("2StaplesL"), CFSTR("4HolePunchL")}, "Pdef None Stp2 Hpn4 FMul - -"},
        {{CFSTR("3HolePunchR"), CFSTR("ZFoldHalfLeft")}, "Pdef None Hpn3 Zfol FMul - -"},
        {{CFSTR("BindLeft"), CFSTR("ZFoldSingleOutside"), CFSTR("SBM"), CFSTR("Custom"),
          CFSTR("SlipSheets"), CFSTR("Offset")},
         "Pdef None Bind Fold FSBM Cust - Spsh Ofsb -"},
        {{CFSTR("BiFoldStapleMultiple")}, "Pdef None Fold - - Bkcr"},
    };
    for (const auto& row : rows) {
        install(row.features);
        EXPECT_EQ(production(), row.items);
        for (const std::string& text : popup_.items())
            EXPECT_EQ(text.find("NOT FOUND"), std::string::npos) << text;
    }
}

}  // namespace
}  // namespace kalmo::test
