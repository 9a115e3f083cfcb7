// Into booklet layout and out of it.
#include "paper_output/paper_output_record.h"

#include <gtest/gtest.h>

namespace kalmo {
namespace {

BookletChoice Choice(SInt32 mode, SInt32 fold) {
    return {.booklet = {.mode = mode, .gutter = 5}, .fold = fold};
}

TEST(Booklet, TheDialogRestoresTheSidesThatTheCommandsDoNot) {
    PaperOutputRecord record;
    record.duplex = kOneSided;
    ApplyBookletChoice(&record, Choice(kBookletOn, kNoFinishing), kOneSided);
    EXPECT_EQ(record.duplex, kTwoSidedShortEdge);
    EXPECT_EQ(record.booklet.gutter, 5);
    ApplyBookletChoice(&record, Choice(kBookletOn, kNoFinishing), record.duplex);
    ApplyBookletChoice(&record, Choice(kBookletOff, kNoFinishing), kTwoSidedShortEdge);
    EXPECT_EQ(record.duplex, kOneSided) << "as it was before the layout was first turned on";
    ApplyBookletChoice(&record, Choice(kBookletOn, kNoFinishing), kOneSided);
    record.finishing.option = kOptionPunch;
    LeaveBooklet(&record);
    EXPECT_FALSE(record.bookletIsOn());
    EXPECT_EQ(record.finishing.option, kOptionPunch) << "there was no booklet fold";
    EXPECT_EQ(record.duplex, kTwoSidedLongEdge);
}

TEST(Booklet, ABookletFoldIsTheOnlyFinishing) {
    PaperOutputRecord record;
    Finishing& finishing = record.finishing;
    const auto choose = [&](SInt32 fold) {
        ApplyBookletChoice(&record, Choice(kBookletOff, fold), kOneSided);
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
}  // namespace kalmo
