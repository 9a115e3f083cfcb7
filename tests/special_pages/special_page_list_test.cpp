// Inserts and exceptions find their places, in lists in any state; one step back.
#include "special_pages/special_page_list.h"

#include <deque>
#include <random>

#include "special_pages/special_pages_model.h"
#include "support/dictionaries.h"

namespace kalmo::test {
namespace {

struct Range {
    SInt32 start, end, setting;
    bool operator==(const Range&) const = default;
};
using Ranges = std::vector<Range>;

/// The list's promise in its plainest form. A range without pages passes by where it would
/// otherwise turn in circles.
void WalkAndAdd(Ranges& list, Range added) {
    std::size_t i = 0;
    while (i < list.size()) {
        const auto here = list.begin() + static_cast<long>(i);
        const Range old = *here;
        if (added.start > old.end) {
            ++i;
        } else if (added.start > old.start) {
            if (added.end < old.end && added.start <= added.end)
                list.insert(here + 1, {added.end + 1, old.end, old.setting});
            if (added.start <= added.end) list[i].end = added.start - 1;
            ++i;
        } else if (added.end < old.start) {
            break;
        } else if (added.end < old.end) {
            here->start = added.end + 1;
        } else {
            list.erase(here);
        }
    }
    list.insert(list.begin() + static_cast<long>(i), added);
}

void Add(SpecialPageList& list, const SpecialPage& page) {
    EXPECT_EQ(list.add(ArrayOfPages({&page})), noErr);
}
ExceptionPage Exception(const Range& range) {
    ExceptionPage page;
    page.setStartPage(range.start);
    page.setEndPage(range.end);
    page.setLightenDarken(range.setting);
    return page;
}
Ranges RangesOf(const ExceptionPageList& list) {
    Ranges ranges;
    for (CFIndex i = 0; const ExceptionPage* page = list.pageAtIndex(i); ++i)
        ranges.push_back({page->startPage(), page->endPage(), page->lightenDarken()});
    return ranges;
}

TEST(ExceptionPageList, AnyListComesOutAsFromThePlainWalk) {
    std::mt19937 random(2);
    const auto page = [&] {
        if (random() % 50 == 0) return random() % 2 ? INT32_MIN : INT32_MAX;
        return static_cast<SInt32>(random() % 60);
    };
    for (int round = 0; round < 30'000; ++round) {
        static ExceptionPageList list;
        static Ranges expected;
        if (round % 30 == 0) list.clear(), expected.clear();
        // Some lists know no ranges without pages, some are changed from outside.
        Range added{page(), page(), round};
        if (round / 30 % 2 && added.end < added.start) std::swap(added.start, added.end);
        Add(list, Exception(added));
        WalkAndAdd(expected, added);
        ASSERT_EQ(RangesOf(list), expected) << round;
        if (round / 30 % 4 || round % 8) continue;
        list.pageAtIndex(0)->setEndPage(expected[0].end = page());
        list.pageAtIndex(0)->setStartPage(expected[0].start = page());
    }
}

TEST(ExceptionPageList, LongListsOfAnyKindDoTooWhenAddedAtOnce) {
    std::mt19937 random(3);
    for (const SInt32 shortest : {0, -4}) {  // with ranges without pages, too
        std::deque<ExceptionPage> pages;
        std::vector<const SpecialPage*> addresses;
        ExceptionPageList list;
        Ranges expected;
        for (SInt32 setting = 0; setting < 6000; ++setting) {
            const auto start = static_cast<SInt32>(random() % 9000);
            const auto length = static_cast<SInt32>(random() % 200 ? random() % 12 : 300);
            const Range added{start, start + length + shortest, setting};
            addresses.push_back(&pages.emplace_back(Exception(added)));
            WalkAndAdd(expected, added);
        }
        ASSERT_GT(expected.size(), 1000u);
        list.add(ArrayOfPages(addresses));
        EXPECT_EQ(RangesOf(list), expected);
    }
}

TEST(ExceptionPageList, NewestRangeWinsAndTrimmedPagesStayThemselves) {
    ExceptionPageList list;
    Add(list, Exception({1, 20, 1}));
    Add(list, Exception({30, 40, 2}));
    const ExceptionPage *first = list.pageAtIndex(0), *second = list.pageAtIndex(1);
    Add(list, Exception({5, 10, 3}));
    Add(list, Exception({19, 35, 4}));
    EXPECT_EQ(RangesOf(list),
              (Ranges{{1, 4, 1}, {5, 10, 3}, {11, 18, 1}, {19, 35, 4}, {36, 40, 2}}));
    EXPECT_EQ(std::pair(list.indexOfPage(first), list.indexOfPage(second)), std::pair(0L, 4L));
    EXPECT_EQ(list.update(list.pageAtIndex(3), ArrayOfPages({list.pageAtIndex(0)})), noErr);
    EXPECT_EQ(list.count(), 4);
    EXPECT_EQ(list.indexOfPage(first), -1) << "its own clone took its pages";
}

TEST(InsertList, InsertsOfAPageStayAsAddedUntilTheyAreMoved) {
    InsertList list;
    // Start pages, and behind them the order of adding.
    const auto starts = [](const InsertList& shown) {
        std::vector<double> found;
        for (CFIndex i = 0; const Insert* insert = shown.pageAtIndex(i); ++i)
            found.push_back(insert->startPage() + insert->quantity() / 10.0);
        return found;
    };
    const auto add = [&](SInt32 start) {
        Insert insert;
        insert.setStartPage(start);
        insert.setQuantity(static_cast<SInt32>(list.count()));
        Add(list, insert);
    };
    for (const SInt32 start : {3, 3, 1, 0}) add(start);
    EXPECT_EQ(starts(list), (std::vector{0.3, 1.2, 3.0, 3.1}));
    EXPECT_FALSE(list.canPromote(list.pageAtIndex(0)) || list.canPromote(list.pageAtIndex(1)));
    EXPECT_FALSE(list.canDemote(list.pageAtIndex(3)) || list.canDemote(nullptr));
    list.demote(list.pageAtIndex(0));
    list.promote(list.pageAtIndex(1));
    list.promote(list.pageAtIndex(2));
    add(2);
    EXPECT_EQ(starts(list), (std::vector{0.3, 2.4, 3.0, 1.2, 3.1}));
    EXPECT_EQ(starts(InsertList(list)), (std::vector{0.3, 1.2, 2.4, 3.0, 3.1}));
}

struct RefusingList final : SpecialPageList {
    OSStatus add(CFArrayRef) override { return paramErr; }
    SpecialPageList* clone() const override { return nullptr; }
    void append() { insertAt(pages_.size(), std::make_unique<Insert>()); }
};

TEST(SpecialPageList, FailedUpdatePutsThePageBack) {
    RefusingList list;
    for (int i = 0; i < 3; ++i) list.append();
    const SpecialPage* const middle = list.pageAtIndex(1);
    EXPECT_EQ(list.update(middle, nullptr), paramErr);
    EXPECT_EQ(list.indexOfPage(middle), 1);
}

TEST(SpecialPageTickets, OnlyTheHalftoneScreenIsLost) {
    ExceptionPageList list;
    EXPECT_EQ(list.asTicket(), nullptr);
    const auto ticket = Dictionary("StartPage=3 EndPage=7 SidesImaged=2 LightenDarken=-4");
    CFDictionarySetValue(ticket, CFSTR("Stock"), Dictionary("Type=1 Color=3"));
    const auto expected = Owned<CFDictionaryRef>::Adopt(CFDictionaryCreateCopy(nullptr, ticket));
    CFDictionarySetValue(ticket, CFSTR("HalftoneScreen"), Value("5"));
    ExceptionPage page(ticket);
    Add(list, page);
    const auto array = Owned<CFArrayRef>::Adopt(list.asTicket());
    EXPECT_TRUE(CFEqual(CFArrayGetValueAtIndex(array, 0), expected));
    page.imageShift().Option = 1;
    const ExceptionPage read(Owned<CFMutableDictionaryRef>::Adopt(page.asTicket()));
    EXPECT_EQ(read.imageShift().Option, 1);
}

TEST(SpecialPagesModel, UndoesOneStepAndKeepsItsLists) {
    SpecialPagesModel model;
    PerformUndo(&model);
    model.now.front = std::make_unique<Cover>();
    Add(*model.now.inserts, Insert());
    SaveUndoState(&model);
    model.now.back = std::move(model.now.front);
    model.now.inserts->clear();
    for (int twice = 0; twice < 2; ++twice) PerformUndo(&model);
    EXPECT_TRUE(model.now.front && !model.now.back && model.now.exceptions && !model.canUndo());
    EXPECT_EQ(model.now.inserts->count(), 1);
}

}  // namespace
}  // namespace kalmo::test
