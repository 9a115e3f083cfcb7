// Inserts and exceptions find their places, in lists in any state.
#include "special_pages/special_page_list.h"

#include <deque>
#include <random>

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

TEST(ExceptionPageList, AChangedPageTakesItsPagesFromTheOthers) {
    ExceptionPageList list;
    for (const Range& range : {Range{1, 4, 1}, {5, 10, 3}, {11, 20, 1}})
        Add(list, Exception(range));
    const ExceptionPage changed = Exception({3, 15, 4});
    EXPECT_EQ(list.update(list.pageAtIndex(1), ArrayOfPages({&changed})), noErr);
    EXPECT_EQ(RangesOf(list), (Ranges{{1, 2, 1}, {3, 15, 4}, {16, 20, 1}}));
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
    list.demote(list.pageAtIndex(0));
    list.promote(list.pageAtIndex(1));
    list.promote(list.pageAtIndex(2));
    add(2);
    EXPECT_EQ(starts(list), (std::vector{0.3, 2.4, 3.0, 1.2, 3.1}));
    EXPECT_EQ(starts(InsertList(list)), (std::vector{0.3, 1.2, 2.4, 3.0, 3.1}));
}

TEST(SpecialPageTickets, OnlyTheHalftoneScreenIsLost) {
    ExceptionPageList list;
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

}  // namespace
}  // namespace kalmo::test
