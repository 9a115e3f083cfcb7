// What the commands of finishing do, and the words, marks and pictures for it.
#include "paper_output/finishing.h"

#include "settings/ppd_file.h"
#include "support/bundles.h"

namespace kalmo::test {
namespace {

/// "single dual multiple punch fold option".
std::string Text(const Finishing& finishing) {
    std::string text;
    for (const SInt32 value :
         {finishing.singleStaple, finishing.dualStaple, finishing.multipleStaple, finishing.punch,
          finishing.fold, finishing.option}) {
        text += (text.empty() ? "" : " ") + std::to_string(value);
    }
    return text;
}

TEST(Finishing, ACommandSettlesWhatDoesNotGoWithIt) {
    const struct {
        UInt32 command;
        SInt32 value;
        const char* after;  // from "6 12 55 3 20 99"
    } rows[] = {
        {'Stp0', 1, "1 1 1 3 20 99"},   {'Stp1', 5, "5 1 1 3 1 4"},
        {'Stp2', 10, "1 10 1 3 1 9"},   {'Stp4', 7, "1 1 54 1 1 53"},
        {'Hpn0', 1, "6 12 55 1 20 99"}, {'HPun', 2, "6 12 1 2 1 30"},
        {'Hpn3', 4, "6 12 1 4 1 30"},   {'Fld0', 1, "6 12 55 3 1 99"},
        {'Zfol', 36, "1 1 1 1 36 40"},  {'Bfld', 53, "1 1 1 1 53 40"},
        {'Bkcr', 8, "6 12 55 3 20 99"}, {0, 8, "6 12 55 3 20 99"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.after);
        Finishing finishing{.option = 99,
                            .singleStaple = 6,
                            .dualStaple = 12,
                            .multipleStaple = 55,
                            .fold = 20,
                            .punch = 3,
                            .custom = {}};
        EXPECT_EQ(ApplyFinishingCommand(&finishing, row.command, row.value), row.value != 8);
        EXPECT_EQ(Text(finishing), row.after);
    }
}

TEST(Finishing, OneLocationBelongsToOneGroupOfStaples) {
    const struct {
        SInt32 value;
        const char *location, *choice;
    } rows[] = {
        {1, "1 1 1", "1 1 1"},   {5, "5 1 1", "5 1 1"},    {6, "6 1 1", "6 1 1"},
        {8, "8 1 1", "1 1 1"},   {9, "1 1 1", "1 1 1"},    {10, "1 10 1", "1 10 1"},
        {11, "1 11 1", "1 1 1"}, {12, "1 12 1", "1 12 1"}, {54, "1 1 54", "1 1 54"},
        {57, "1 1 57", "1 1 1"}, {58, "1 1 1", "1 1 1"},   {-1, "1 1 1", "1 1 1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        Finishing located, chosen;
        located.dualStaple = chosen.dualStaple = 99;
        SetStapleLocation(&located, row.value);
        ChooseStaple(&chosen, row.value);
        EXPECT_EQ(Text(located), std::string(row.location) + " 0 0 0");
        EXPECT_EQ(Text(chosen), std::string(row.choice) + " 0 0 0");
        EXPECT_EQ(StapleLocation(located), Text(located).starts_with("1 1 1 ") ? 1 : row.value);
    }
    const Finishing several{
        .singleStaple = 5, .dualStaple = 10, .multipleStaple = 54, .custom = {}};
    EXPECT_EQ(StapleLocation(several), 5);
}

TEST(Finishing, TheSummaryHasALineForEachDeviceOrForTheBooklet) {
    const auto bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    const auto summary = [&](const Finishing& finishing, bool layout, FinishingDevices devices) {
        return TextOf(CreateFinishingString(bundle, finishing, layout, devices));
    };
    const Finishing stapled{
        .singleStaple = 5, .dualStaple = 10, .fold = kFoldBiStaple, .punch = 4, .custom = {}};
    EXPECT_EQ(summary(stapled, false, {}), "");
    EXPECT_EQ(summary(stapled, false, {.hasStapler = true, .hasPuncher = true, .hasFolder = true}),
              "- 1 staple\n- 3 holes\n- Not folded\n");
    EXPECT_EQ(summary(stapled, true, {.hasStapler = true}),
              "- Booklet, folded and stapled\n- Booklet layout\n");
    Finishing none{.option = kOptionBooklet, .fold = 1, .custom = {}};
    EXPECT_EQ(summary(none, true, {}), "- Not folded\n- Booklet layout\n");
    EXPECT_EQ(summary(none, false, {.hasStapler = true}), "- Not folded\n");
    for (const SInt32 value : {1, 2, 3, 5, 19, 20, 36, 43, 54}) {
        Finishing any{.multipleStaple = value, .fold = value, .punch = value, .custom = {}};
        for (const SInt32 option : {kOptionNone, kOptionBooklet}) {
            any.option = option;
            EXPECT_EQ(summary(any, false, {true, true, true}).find("NOT FOUND"), std::string::npos);
        }
    }
}

TEST(Finishing, PicturesShowTheFoldElseStaplesWithHoles) {
    const struct {
        SInt32 staple, punch, fold;
        bool layout;
        const char* picture;
    } rows[] = {
        {1, 1, 0, false, "OfficeFinishing_None.gif"},
        {1, 1, 1, true, "OfficeFinishing_Bklt_Layout.gif"},
        {1, 4, 1, true, "OfficeFinishing_3Hp.gif"},
        {5, 1, 1, true, "OfficeFinishing_1St.gif"},
        {5, 2, 1, false, "OfficeFinishing_1St&3Hp.gif"},
        {10, 3, 1, false, "OfficeFinishing_2St&2Hp.gif"},
        {54, 5, 1, false, "OfficeFinishing_4St&4Hp.gif"},
        {5, 5, 36, true, "ProductionFinishing_ZFold_Half_Left.gif"},
        {1, 1, 43, true, "OfficeFinishing_Bklt_Fold_Layout.gif"},
        {1, 1, 53, false, "OfficeFinishing_BKlt_Fold&Stple.gif"},
        {1, 1, 53, true, "OfficeFinishing_Bklt_Fold&Stpl_Layout.gif"},
    };
    for (const auto& row : rows) {
        Finishing finishing{.fold = row.fold, .punch = row.punch, .custom = {}};
        SetStapleLocation(&finishing, row.staple);
        EXPECT_EQ(FinishingPicture(finishing, row.layout), row.picture);
    }
}

const _InstalledFeatureMap kStockBound[] = {
    {CFSTR("GBCAdvancedPunchKey"), nullptr, nullptr, nullptr, 0},
    {CFSTR("SquareFoldTrimmerKey"), nullptr, nullptr, nullptr, 0},
    {}};

TEST(Finishing, ThePaperSaysWhatCanBeHad) {
    const PrinterWithPPD printer("");
    LoadInstallableOptions(printer.ppd(), kStockBound);
    const struct {
        SInt32 type, weight;
        std::optional<bool> coil;
        bool square;
    } rows[] = {{kUnset, kUnset, std::nullopt, true},
                {kUnset, 100, true, true},
                {1, kUnset, true, true},
                {9, 100, false, false},
                {2, kUnset, false, false},
                {1, 217, false, true},
                {1, 216, true, true},
                {1, 79, false, true},
                {4, 80, true, false},
                {5, 80, true, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.type << " " << row.weight);
        Stock stock(nullptr);
        stock.setType(row.type);
        stock.setWeight(row.weight);
        Finishing finishing;
        finishing.squareFold = true;
        EXPECT_EQ(CoilPunchAvailable(stock), row.coil);
        EXPECT_EQ(CoupleSquareFold(&finishing, stock), !row.square);
        EXPECT_EQ(finishing.squareFold, row.square);
        EXPECT_FALSE(CoupleSquareFold(&finishing, stock)) << "nothing more to change";
    }
}

}  // namespace
}  // namespace kalmo::test
