// Which pages lie on which sheets.
#include "print_dialog/sheet_plan.h"

#include "support/test.h"

namespace kalmo::test {
namespace {

constexpr auto kTwo = PrintedSides::longEdge, kShort = PrintedSides::shortEdge;

std::string Told(const std::vector<int>& pages) {
    std::string text;
    for (const int page : pages) text += (text.empty() ? "" : "+") + std::to_string(page);
    return text;
}
/// "1" a one-sided sheet, "1/2" a two-sided one, "1~2" bound at the short edge, "1+2" beside each
/// other; F, B: covers; I3: three inserts; "@1:" on paper 1.
std::string Told(const SheetPlan& plan) {
    std::string text;
    for (const PlannedSheet& sheet : plan.sheets) {
        text += text.empty() ? "" : " ";
        if (sheet.kind == SheetKind::insert) text += "I" + std::to_string(sheet.count);
        if (sheet.kind == SheetKind::frontCover) text += "F";
        if (sheet.kind == SheetKind::backCover) text += "B";
        if (sheet.paper > 0) text += "@" + std::to_string(sheet.paper) + ":";
        text += Told(sheet.front);
        if (sheet.sides == PrintedSides::one) continue;
        text += (sheet.sides == kShort ? "~" : "/") + Told(sheet.back);
    }
    return text;
}

TEST(SheetPlans, SheetsComeOutInThisOrder) {
    using Cover = PlanCover;
    const std::tuple<const char*, PlanInput, const char*> rows[] = {
        {"no page in the range", {.pageCount = 3, .pages = {{7, 9}}, .frontCover = Cover{}}, ""},
        {"an odd page has a blank back", {.pageCount = 3, .sides = kTwo}, "1/2 3/"},
        {"four on a side",
         {.pageCount = 9, .pagesPerSide = 4, .sides = kTwo},
         "1+2+3+4/5+6+7+8 9/"},
        {"an insert takes a sheet of its own and ends the one before",
         {.pageCount = 4, .sides = kTwo, .inserts = {{1, 2, 3}}},
         "1/ I2@3: 2/3 4/"},
        {"inserts first and last, those of one place in their order",
         {.pageCount = 2, .inserts = {{2, 1}, {0, 3}, {2, 5, 1}}},
         "I3 1 2 I1 I5@1:"},
        {"inserts of pages that are not printed",
         {.pageCount = 4, .pages = {{2, 3}}, .inserts = {{1}, {4}, {5}, {-1}, {2}}},
         "2 I1 3"},
        {"an insert amid four on a side",
         {.pageCount = 6, .pagesPerSide = 4, .sides = kTwo, .inserts = {{2}}},
         "1+2/ I1 3+4+5+6/"},
        {"a one-sided exception begins and ends sheets",
         {.pageCount = 6, .sides = kTwo, .exceptions = {{{2, 3}, 0, PrintedSides::one}}},
         "1/ 2 3 4/5 6/"},
        {"so does another paper, and a flip on the other edge",
         {.pageCount = 5, .sides = kTwo, .exceptions = {{{2, 2}, 1}, {{5, 5}, 0, kShort}}},
         "1/ @1:2/ 3/4 5~"},
        {"an exception that changes neither does not",
         {.pageCount = 3, .sides = kTwo, .exceptions = {{{2, 2}, 0, kTwo}}},
         "1/2 3/"},
        {"covers are bound as the pages are",
         {.pageCount = 6, .sides = kShort, .frontCover = Cover{1, 2}, .backCover = Cover{2, 1}},
         "F@1:1~2 3~4 5~ B@2:6"},
        {"of exceptions for one page the last counts",
         {.pageCount = 4, .exceptions = {{{1, 3}, 1}, {{2, 9}, 2}, {{3, 1}, 4}}},
         "@1:1 @2:2 @2:3 @2:4"},
        {"blank covers are additions",
         {.pageCount = 3, .sides = kTwo, .frontCover = Cover{1, 0}, .backCover = Cover{2, 0}},
         "F@1: 1/2 3/ B@2:"},
        {"printed covers take pages",
         {.pageCount = 6, .sides = kTwo, .frontCover = Cover{1, 2}, .backCover = Cover{2, 1}},
         "F@1:1/2 3/4 5/ B@2:6"},
        {"the front cover comes first when pages run out",
         {.pageCount = 3, .frontCover = Cover{1, 2}, .backCover = Cover{1, 2}},
         "F@1:1/2 B@1:3/"},
        {"covers with four on a side",
         {.pageCount = 13, .pagesPerSide = 4, .frontCover = Cover{1, 1}, .backCover = Cover{1, 1}},
         "F@1:1+2+3+4 5+6+7+8 9+10+11+12 B@1:13"},
        {"an insert comes between pages of a cover",
         {.pageCount = 4,
          .frontCover = Cover{1, 2},
          .backCover = Cover{1, 2},
          .inserts = {{1}, {3}}},
         "F@1:1/ I1 2 3 I1 B@1:4/"},
        {"and behind its second side",
         {.pageCount = 4, .sides = kTwo, .frontCover = Cover{1, 2}, .inserts = {{2}}},
         "F@1:1/2 I1 3/4"},
        {"a range in two parts, on covers and four on a side",
         {.pageCount = 20,
          .pages = {{2, 7}, {11, 20}},
          .pagesPerSide = 4,
          .sides = kTwo,
          .frontCover = Cover{1, 1},
          .exceptions = {{{12, 15}, 2, PrintedSides::one}}},
         "F@1:2+3+4+5 6+7+11/ @2:12+13+14+15 16+17+18+19/20"},
        {"a booklet", {.pageCount = 8, .booklet = true}, "8+1~2+7 6+3~4+5"},
        {"its blank pages come last", {.pageCount = 5, .booklet = true}, "1~2 3~4+5"},
        {"its cover is its outermost sheet",
         {.pageCount = 8, .booklet = true, .frontCover = Cover{1, 2}, .backCover = Cover{2, 0}},
         "F@1:8+1~2+7 6+3~4+5"},
        {"inserts and exceptions have no place in it",
         {.pageCount = 4, .booklet = true, .inserts = {{1}}, .exceptions = {{{1, 2}, 1}}},
         "4+1~2+3"},
        {"numbers of nobody's",
         {.pageCount = 2,
          .pages = {{-5, 2147483647}},
          .pagesPerSide = -1,
          .frontCover = Cover{1, 99},
          .inserts = {{1, -7}, {2147483647, 1}},
          .exceptions = {{{2147483646, 2147483647}, 3}}},
         "F@1:1/ I1 2"},
    };
    for (const auto& [why, input, expected] : rows) {
        SCOPED_TRACE(why);
        EXPECT_EQ(Told(PlanSheets(input)), expected);
    }
}

TEST(SheetPlans, CountsAndRunsOfAllCopies) {
    const auto plan = PlanSheets({.pageCount = 7,
                                  .sides = kTwo,
                                  .copies = 3,
                                  .inserts = {{4, 10, 1}},
                                  .exceptions = {{{5, 6}, 1, PrintedSides::one}}});
    EXPECT_EQ(plan.sheetsPerCopy(), 2 + 10 + 2 + 1);
    EXPECT_EQ(plan.sheetsInAll(), 45);
    EXPECT_EQ(plan.printedSidesPerCopy(), 7);
    std::string runs;
    for (const SheetRun& run : plan.runs())
        runs += PageRangesText(run.pages) + "x" + std::to_string(run.sheets) + " ";
    EXPECT_EQ(runs, "1-4x2 x10 5-6x2 7x1 ");
    EXPECT_TRUE(StandingInserts({.pageCount = 3, .pages = {{7, 9}}, .inserts = {{0}}}).empty());
}

}  // namespace
}  // namespace kalmo::test
