// What the commands of finishing do, the words and pictures for it, and the menus.
#include "paper_output/finishing.h"

#include "paper_output/finishing_menu.h"
#include "paper_output/paper_output_record.h"
#include "settings/ppd_file.h"

namespace kalmo::test {
namespace {

/// "single dual multiple punch fold option".
std::string Text(const Finishing& f) {
    std::string text;
    for (const SInt32 value :
         {f.singleStaple, f.dualStaple, f.multipleStaple, f.punch, f.fold, f.option})
        text += (text.empty() ? "" : " ") + std::to_string(value);
    return text;
}

TEST(Finishing, ACommandSettlesWhatDoesNotGoWithIt) {
    const std::tuple<UInt32, SInt32, const char*> rows[] = {
        {'Stp0', 1, "1 1 1 3 20 99"},  {'Stp1', 5, "5 1 1 3 1 4"},    {'Stp2', 10, "1 10 1 3 1 9"},
        {'Stp4', 7, "1 1 54 1 1 53"},  {'HPun', 2, "6 12 1 2 1 30"},  {'Fld0', 1, "6 12 55 3 1 99"},
        {'Zfol', 36, "1 1 1 1 36 40"}, {'Bkcr', 0, "6 12 55 3 20 99"}};
    for (const auto& [command, value, after] : rows) {
        Finishing finishing{99, 6, 12, 55, 20, 1, 3};
        EXPECT_EQ(ApplyFinishingCommand(&finishing, command, value), value != 0);
        EXPECT_EQ(Text(finishing), after);
    }
}

TEST(Finishing, OneLocationBelongsToOneGroupOfStaples) {
    for (const auto& [value, located, chosen] : {std::tuple{5, "5 1 1", "5 1 1"},
                                                 {8, "8 1 1", "1 1 1"},
                                                 {12, "1 12 1", "1 12 1"},
                                                 {54, "1 1 54", "1 1 54"}}) {
        Finishing byLocation{.dualStaple = 99, .custom = {}}, byChoice = byLocation;
        SetStapleLocation(&byLocation, value);
        ChooseStaple(&byChoice, value);
        EXPECT_EQ(Text(byLocation), std::string(located) + " 0 0 0");
        EXPECT_EQ(Text(byChoice), std::string(chosen) + " 0 0 0");
    }
}

TEST(Finishing, TheSummaryHasALineForEachDeviceOrForTheBooklet) {
    const auto bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    const std::tuple<Finishing, bool, const char*> rows[] = {
        {{0, 5, 10, 1, 53, 1, 4}, false, "- 1 staple\n- 3 holes\n- Not folded\n"},
        {{0, 1, 1, 54, 43, 1, 1}, false, "- Several staples\n- Not punched\n- Folded in half\n"},
        {{24, 5, 1, 1, 53, 1, 4}, false, "- Booklet, folded and stapled\n"},
        {{0, 5, 1, 1, 1, 1, 4}, true, "- Not folded\n- Booklet layout\n"}};
    for (const auto& [finishing, layout, lines] : rows)
        EXPECT_EQ(TakeText(CreateFinishingString(bundle, finishing, layout, {true, true, true})),
                  lines);
    EXPECT_EQ(TakeText(CreateFinishingString(bundle, {}, false, {})), "");
}

TEST(Booklet, ABookletFoldIsTheOnlyFinishing) {
    PaperOutputRecord record;
    Finishing& finishing = record.finishing;
    const auto choose = [&](SInt32 fold) {
        ApplyBookletChoice(&record, {.booklet = {.mode = kBookletOff}, .fold = fold}, kOneSided);
    };
    finishing.singleStaple = 5;
    finishing.punch = finishing.bind = 4;
    finishing.offsetSubsetEnabled = 1;
    finishing.offset = 0;
    choose(kFoldBiStaple);
    EXPECT_EQ(finishing.option, kOptionBooklet);
    EXPECT_EQ(finishing.fold, kFoldBiStaple);
    EXPECT_EQ(StapleLocation(finishing), kNoFinishing);
    EXPECT_TRUE(finishing.punch == 1 && finishing.bind == 1 && finishing.offset == 1);
    EXPECT_EQ(finishing.offsetSubsetEnabled, 0);
    choose(kNoFinishing);
    EXPECT_EQ(finishing.option, kOptionNone);
    finishing.option = kOptionPunch;
    choose(kNoFinishing);
    EXPECT_EQ(finishing.option, kOptionPunch) << "there was no booklet fold to undo";
}

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

TEST_F(FinishingMenu, APaperTakesAwayASquareFoldAndACoilPunchThatItCannotHave) {
    install({CFSTR("SquareFoldTrimmerKey"), CFSTR("GBCAdvancedPunchKey")});
    const std::tuple<SInt32, SInt32, bool, bool> rows[] = {
        {1, kUnset, true, true}, {1, 217, true, false}, {1, 216, true, true},
        {9, 100, false, false},  {2, 80, false, false}, {kUnset, 80, true, true},
        {4, 80, false, true},    {5, 80, false, true},  {kUnset, 79, true, false}};
    for (const auto& [type, weight, folds, punches] : rows) {
        SCOPED_TRACE(std::to_string(type) + " of " + std::to_string(weight));
        Stock stock(nullptr);
        stock.setType(type);
        stock.setWeight(weight);
        Finishing finishing{.squareFold = true};
        EXPECT_EQ(CoupleSquareFold(&finishing, stock), !folds);
        EXPECT_EQ(finishing.squareFold, folds);
        ApplyFinishingCommand(&finishing, kCoilCommand, 0);
        EXPECT_EQ(CoupleCoilPunch(nullptr, &finishing, stock), !punches);
        EXPECT_EQ(finishing.option, punches ? kOptionCoilPunch : kOptionNone);
    }
}

}  // namespace
}  // namespace kalmo::test
