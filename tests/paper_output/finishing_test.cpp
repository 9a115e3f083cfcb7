// What the commands of finishing do, and the words and pictures for it.
#include "paper_output/finishing.h"

#include "paper_output/paper_output_record.h"
#include "settings/ppd_file.h"
#include "support/bundles.h"

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
    const struct {
        UInt32 command;
        SInt32 value;
        const char* after;
    } rows[] = {{'Stp0', 1, "1 1 1 3 20 99"},   {'Stp1', 5, "5 1 1 3 1 4"},
                {'Stp2', 10, "1 10 1 3 1 9"},   {'Stp4', 7, "1 1 54 1 1 53"},
                {'Hpn0', 1, "6 12 55 1 20 99"}, {'HPun', 2, "6 12 1 2 1 30"},
                {'Hpn3', 4, "6 12 1 4 1 30"},   {'Fld0', 1, "6 12 55 3 1 99"},
                {'Zfol', 36, "1 1 1 1 36 40"},  {'Bkcr', 0, "6 12 55 3 20 99"}};
    for (const auto& row : rows) {
        Finishing finishing{99, 6, 12, 55, 20, 1, 3};
        EXPECT_EQ(ApplyFinishingCommand(&finishing, row.command, row.value), row.value != 0);
        EXPECT_EQ(Text(finishing), row.after);
    }
}

TEST(Finishing, OneLocationBelongsToOneGroupOfStaples) {
    const struct {
        SInt32 value;
        const char *located, *chosen;
    } rows[] = {{5, "5 1 1", "5 1 1"},    {8, "8 1 1", "1 1 1"},   {9, "1 1 1", "1 1 1"},
                {6, "6 1 1", "6 1 1"},    {11, "1 11 1", "1 1 1"}, {12, "1 12 1", "1 12 1"},
                {54, "1 1 54", "1 1 54"}, {57, "1 1 57", "1 1 1"}, {-1, "1 1 1", "1 1 1"}};
    for (const auto& row : rows) {
        Finishing located{.dualStaple = 99, .custom = {}}, chosen = located;
        SetStapleLocation(&located, row.value);
        ChooseStaple(&chosen, row.value);
        EXPECT_EQ(Text(located), std::string(row.located) + " 0 0 0");
        EXPECT_EQ(Text(chosen), std::string(row.chosen) + " 0 0 0");
        EXPECT_TRUE(StapleLocation(chosen) == 1 || StapleLocation(chosen) == row.value);
    }
}

TEST(Finishing, TheSummaryHasALineForEachDeviceOrForTheBooklet) {
    const auto bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    const struct {
        Finishing finishing;
        bool layout;
        const char* lines;
    } rows[] = {
        {{0, 5, 10, 1, 53, 1, 4}, false, "- 1 staple\n- 3 holes\n- Not folded\n"},
        {{0, 1, 1, 54, 43, 1, 1}, false, "- Several staples\n- Not punched\n- Folded in half\n"},
        {{24, 5, 1, 1, 53, 1, 4}, false, "- Booklet, folded and stapled\n"},
        {{0, 5, 1, 1, 1, 1, 4}, true, "- Not folded\n- Booklet layout\n"}};
    for (const auto& [finishing, layout, lines] : rows) {
        EXPECT_EQ(TakeText(CreateFinishingString(bundle, finishing, layout, {true, true, true})),
                  lines);
    }
    EXPECT_EQ(TakeText(CreateFinishingString(bundle, {}, false, {})), "");
}

TEST(Finishing, PicturesShowTheFoldElseStaplesWithHoles) {
    const struct {
        Finishing finishing;
        bool layout;
        const char* picture;
    } rows[] = {{{0, 1, 1, 1, 0, 0, 1}, true, "OfficeFinishing_Bklt_Layout.gif"},
                {{0, 5, 1, 1, 1, 0, 1}, true, "OfficeFinishing_1St.gif"},
                {{0, 1, 10, 1, 1, 0, 2}, false, "OfficeFinishing_2St&3Hp.gif"},
                {{0, 5, 1, 1, 36, 0, 2}, true, "ProductionFinishing_ZFold_Half_Left.gif"},
                {{0, 1, 1, 1, 53, 0, 1}, false, "OfficeFinishing_BKlt_Fold&Stple.gif"},
                {{0, 1, 1, 1, 53, 0, 1}, true, "OfficeFinishing_Bklt_Fold&Stpl_Layout.gif"}};
    for (const auto& [finishing, layout, picture] : rows)
        EXPECT_EQ(FinishingPicture(finishing, layout), picture);
}

TEST(Finishing, ASquareFoldNeedsAPaperThatFolds) {
    const PrinterWithPPD printer("");
    const _InstalledFeatureMap table[] = {{CFSTR("SquareFoldTrimmerKey")}, {}};
    LoadInstallableOptions(printer.ppd(), table);
    for (const auto& [type, allowed] :
         {std::pair{kUnset, true}, {1, true}, {9, false}, {2, false}, {4, false}, {5, false}}) {
        Stock stock(nullptr);
        stock.setType(type);
        Finishing finishing{.squareFold = true};
        EXPECT_EQ(CoupleSquareFold(&finishing, stock), !allowed);
        EXPECT_EQ(finishing.squareFold, allowed);
        EXPECT_FALSE(CoupleSquareFold(&finishing, stock)) << "nothing more to change";
    }
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
    choose(kFoldBi);
    record.duplex = kOneSided;
    LeaveBooklet(&record);
    EXPECT_EQ(std::pair(finishing.option, finishing.fold), std::pair(kOptionNone, kNoFinishing));
    EXPECT_EQ(record.duplex, kOneSided) << "the layout was off";
}

}  // namespace
}  // namespace kalmo::test
