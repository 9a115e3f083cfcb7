// Inserts and exceptions find their places, in lists in any state; one step back.
#include "special_pages/special_page_list.h"

#include <random>

#include "special_pages/special_pages_model.h"
#include "support/dictionaries.h"

namespace kalmo::test {
namespace {

struct Range {
    SInt32 start, end, setting;
    bool operator==(const Range&) const = default;
};

/// The list's promise in its plainest form. A range without pages stops where it would otherwise
/// turn in circles.
void WalkAndAdd(std::vector<Range>& list, Range added) {
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

ExceptionPage Exception(const Range& range) {
    ExceptionPage page;
    page.setStartPage(range.start);
    page.setEndPage(range.end);
    page.setLightenDarken(range.setting);
    return page;
}
void Add(SpecialPageList& list, const SpecialPage& page) {
    EXPECT_EQ(list.add(ArrayOfPages({&page})), noErr);
}
std::vector<Range> RangesOf(const ExceptionPageList& list) {
    std::vector<Range> ranges;
    for (CFIndex i = 0; i < list.count(); ++i) {
        const ExceptionPage* page = list.pageAtIndex(i);
        ranges.push_back({page->startPage(), page->endPage(), page->lightenDarken()});
    }
    return ranges;
}

constexpr SInt32 kPages = 2000;

TEST(ExceptionPageList, NewestRangeWinsOnEveryPage) {
    std::mt19937 random(1);
    for (int round = 0; round < 20; ++round) {
        ExceptionPageList list;
        const bool many = round % 2 == 1;
        std::vector<SInt32> expected(kPages + 1, kUnset), held(kPages + 1, kUnset);
        for (SInt32 setting = 0; setting < (many ? 3 * kPages : 100); ++setting) {
            const SInt32 start = static_cast<SInt32>(random() % kPages) + 1;
            const SInt32 length = static_cast<SInt32>(random()) & (many ? 1 : 511);
            const SInt32 end = std::min(start + length, kPages);
            Add(list, Exception({start, end, setting}));
            std::fill(&expected[start], &expected[end] + 1, setting);
        }
        SInt32 last = 0;
        for (const Range& range : RangesOf(list)) {
            ASSERT_TRUE(last < range.start && range.start <= range.end);
            last = range.end;
            std::fill(&held[range.start], &held[range.end] + 1, range.setting);
        }
        ASSERT_EQ(held, expected);
    }
}

TEST(ExceptionPageList, AnyListComesOutAsFromThePlainWalk) {
    std::mt19937 random(2);
    const auto page = [&] {
        constexpr SInt32 kExtremes[] = {INT32_MIN, INT32_MAX};
        return random() % 50 ? static_cast<SInt32>(random() % 60) : kExtremes[random() % 2];
    };
    for (int round = 0; round < 2000; ++round) {
        ExceptionPageList list;
        std::vector<Range> expected;
        for (SInt32 setting = 0; setting < 30; ++setting) {
            Range added{page(), page(), setting};
            // Half of the rounds know ranges without pages, half of these changes from outside.
            if (round % 2 && added.end < added.start) std::swap(added.start, added.end);
            Add(list, Exception(added));
            WalkAndAdd(expected, added);
            ASSERT_EQ(RangesOf(list), expected) << round;
            if (round % 4 || random() % 8) continue;
            const std::size_t i = random() % expected.size();
            list.pageAtIndex(static_cast<CFIndex>(i))->setEndPage(expected[i].end = page());
            list.pageAtIndex(static_cast<CFIndex>(i))->setStartPage(expected[i].start = page());
        }
    }
}

TEST(ExceptionPageList, TrimmedPagesStayThemselves) {
    ExceptionPageList list;
    for (const Range& range : {Range{1, 20, 1}, Range{30, 40, 2}}) Add(list, Exception(range));
    const ExceptionPage *first = list.pageAtIndex(0), *second = list.pageAtIndex(1);
    Add(list, Exception({5, 10, 3}));
    Add(list, Exception({19, 35, 4}));
    EXPECT_EQ(RangesOf(list),
              (std::vector<Range>{{1, 4, 1}, {5, 10, 3}, {11, 18, 1}, {19, 35, 4}, {36, 40, 2}}));
    EXPECT_EQ(std::pair(list.indexOfPage(first), list.indexOfPage(second)), std::pair(0L, 4L));
    EXPECT_EQ(list.update(list.pageAtIndex(3), ArrayOfPages({list.pageAtIndex(0)})), noErr);
    EXPECT_EQ(list.count(), 4);
    EXPECT_EQ(list.indexOfPage(first), -1) << "its own clone took its pages";
}

struct Inserts : testing::Test {
    void add(std::initializer_list<SInt32> starts) {
        for (const SInt32 start : starts) {
            Insert insert;
            insert.setStartPage(start);
            insert.setQuantity(start * 10 + static_cast<SInt32>(list.count()));
            Add(list, insert);
        }
    }
    /// Start page and order of adding.
    [[nodiscard]] std::vector<SInt32> order() const {
        std::vector<SInt32> order;
        for (CFIndex i = 0; i < list.count(); ++i) order.push_back(list.pageAtIndex(i)->quantity());
        return order;
    }

    InsertList list;
};

TEST_F(Inserts, ThoseOfAPageStayAsAddedUntilTheyAreMoved) {
    add({3, 3, 1, 0});
    EXPECT_EQ(order(), (std::vector<SInt32>{3, 12, 30, 31}));
    EXPECT_FALSE(list.canPromote(list.pageAtIndex(0)) || list.canPromote(list.pageAtIndex(1)))
        << "none passes one before page 1";
    EXPECT_FALSE(list.canDemote(list.pageAtIndex(3)) || list.canDemote(nullptr));
    list.demote(list.pageAtIndex(0));
    list.promote(list.pageAtIndex(1));
    list.promote(list.pageAtIndex(2));
    EXPECT_EQ(order(), (std::vector<SInt32>{3, 30, 12, 31}));
    add({2});
    EXPECT_EQ(order(), (std::vector<SInt32>{3, 24, 30, 12, 31})) << "before the first behind it";
    const InsertList copy(list);
    EXPECT_EQ(copy.pageAtIndex(0)->quantity(), 3) << "a copy is in order again";
    ExceptionPage foreign;
    Add(list, foreign);
    list.remove(&foreign);
    EXPECT_EQ(list.count(), 5);
    EXPECT_EQ(list.pageAtIndex(-1), nullptr);
    EXPECT_EQ(list.pageAtIndex(5), nullptr);
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
    EXPECT_EQ(list.update(nullptr, nullptr), noErr) << "nothing to replace";
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
    page.imageShift().X1 = 5;
    const ExceptionPage read(Owned<CFMutableDictionaryRef>::Adopt(page.asTicket()));
    EXPECT_EQ(std::pair(read.imageShift().Option, read.imageShift().X1), std::pair(1, 5));
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
