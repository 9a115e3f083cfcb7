#include "print_dialog/sheet_plan.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <tuple>

namespace kalmo {
namespace {

constexpr int kMostInsertSheets = 999;
/// Places of a booklet's sheet: two on each side.
constexpr int kBookletPlaces = 4;

std::vector<int> ChosenPages(const PlanInput& input) {
    std::vector<int> chosen;
    for (const PageRange& range : PrintedOf({1, input.pageCount}, input)) {
        for (int page = range.first; page <= range.last; ++page) chosen.push_back(page);
    }
    return chosen;
}

/// How a page is to be printed: what cannot change within a sheet.
struct PageForm {
    int paper = 0;
    PrintedSides sides = PrintedSides::one;
    bool operator==(const PageForm&) const = default;
};

/// Index 0 is no page. Each page is looked at once, however many exceptions name it.
std::vector<PageForm> FormsOfPages(const PlanInput& input) {
    const auto count = static_cast<std::size_t>(input.pageCount);
    std::vector<PageForm> forms(count + 1, {0, input.sides});
    std::vector<std::size_t> open(count + 2);  // from each page, the next one without an exception
    std::iota(open.begin(), open.end(), 0);
    const auto nextOpen = [&open](std::size_t page) {
        while (open[page] != page) page = open[page] = open[open[page]];
        return page;
    };
    for (auto exception = input.exceptions.rbegin(); exception != input.exceptions.rend();
         ++exception) {
        const int last = std::min(exception->pages.last, input.pageCount);
        const int first = std::max(exception->pages.first, 1);
        if (first > last) continue;
        for (auto page = nextOpen(static_cast<std::size_t>(first));
             page <= static_cast<std::size_t>(last); page = nextOpen(page)) {
            forms[page] = {exception->paper, exception->sides.value_or(input.sides)};
            open[page] = page + 1;
        }
    }
    return forms;
}

/// What lies on one side of a sheet.
struct Side {
    std::vector<int> pages;
    PageForm form;
    bool startsSheet = false;
    bool followsInsert = false;
};
using Sides = std::vector<Side>;

std::vector<PlanInsert> InsertsBetween(const std::vector<int>& chosen, const PlanInput& input) {
    const bool anyPage = input.pageCount <= 0;
    const auto stands = [&](int page) {
        if (page == 0 || anyPage) return page >= 0 && (anyPage || !chosen.empty());
        return std::ranges::binary_search(chosen, page);
    };
    std::vector<PlanInsert> inserts;
    for (const PlanInsert& insert : input.inserts) {
        if (stands(insert.afterPage)) inserts.push_back(insert);
    }
    std::ranges::stable_sort(inserts, {}, &PlanInsert::afterPage);
    return inserts;
}

Sides FillSides(const std::vector<int>& chosen, const std::vector<PlanInsert>& inserts,
                const PlanInput& input) {
    const auto most = static_cast<std::size_t>(std::max(input.pagesPerSide, 1));
    const auto forms = FormsOfPages(input);
    Sides sides;
    for (const int page : chosen) {
        const PageForm form = forms[static_cast<std::size_t>(page)];
        const bool insertBefore =
            !sides.empty() && std::ranges::binary_search(inserts, sides.back().pages.back(), {},
                                                         &PlanInsert::afterPage);
        const bool starts = sides.empty() || insertBefore || sides.back().form != form;
        if (starts || sides.back().pages.size() == most)
            sides.push_back({{}, form, starts, insertBefore});
        sides.back().pages.push_back(page);
    }
    return sides;
}

PlannedSheet CoverSheet(SheetKind kind, const PlanCover& cover, const PlanInput& input) {
    const bool both = cover.printedSides > 1;
    const auto two = input.sides == PrintedSides::one ? PrintedSides::longEdge : input.sides;
    return {.kind = kind, .paper = cover.paper, .sides = both ? two : PrintedSides::one};
}

/// Takes the cover's sides from the front of `sides`.
PlannedSheet TakeFrontCover(const PlanInput& input, Sides& sides) {
    auto sheet = CoverSheet(SheetKind::frontCover, *input.frontCover, input);
    const auto wanted = static_cast<std::size_t>(std::clamp(input.frontCover->printedSides, 0, 2));
    std::size_t taken = 0;
    while (taken < wanted && taken < sides.size() && !(taken && sides[taken].followsInsert))
        ++taken;
    if (taken > 0) sheet.front = sides[0].pages;
    if (taken > 1) sheet.back = sides[1].pages;
    sides.erase(sides.begin(), sides.begin() + static_cast<std::ptrdiff_t>(taken));
    return sheet;
}

/// Takes the cover's sides from the end of `sides`.
PlannedSheet TakeBackCover(const PlanInput& input, Sides& sides) {
    auto sheet = CoverSheet(SheetKind::backCover, *input.backCover, input);
    const int wanted = std::clamp(input.backCover->printedSides, 0, 2);
    for (int taken = 0; taken < wanted && !sides.empty(); ++taken) {
        if (taken) sheet.back = std::move(sheet.front);
        const bool followsInsert = sides.back().followsInsert;
        sheet.front = std::move(sides.back().pages);
        sides.pop_back();
        if (followsInsert) break;
    }
    return sheet;
}

/// Puts sheets in their order, inserts behind the pages that they follow.
class Stack final {
public:
    explicit Stack(const std::vector<PlanInsert>& inserts)
        : next_(inserts.begin()), end_(inserts.end()) {}

    void add(PlannedSheet sheet) { sheets_.push_back(std::move(sheet)); }
    void addInsertsUpTo(int page) {
        for (; next_ != end_ && next_->afterPage <= page; ++next_) {
            add({.kind = SheetKind::insert,
                 .paper = next_->paper,
                 .count = std::clamp(next_->sheets, 1, kMostInsertSheets)});
        }
    }
    void addAllInserts() { addInsertsUpTo(INT32_MAX); }
    /// A side, on the back of the sheet before where that is free.
    void addSide(Side& side) {
        const bool onBack =
            !side.startsSheet && !sheets_.empty() && sheets_.back().kind == SheetKind::page &&
            sheets_.back().sides != PrintedSides::one && sheets_.back().back.empty();
        const int last = side.pages.back();
        if (onBack) {
            sheets_.back().back = std::move(side.pages);
        } else {
            add({.paper = side.form.paper,
                 .sides = side.form.sides,
                 .front = std::move(side.pages)});
        }
        addInsertsUpTo(last);
    }
    [[nodiscard]] std::vector<PlannedSheet> take() { return std::move(sheets_); }

private:
    std::vector<PlanInsert>::const_iterator next_, end_;
    std::vector<PlannedSheet> sheets_;
};

std::vector<PlannedSheet> PlanInOrder(const PlanInput& input, const std::vector<int>& chosen) {
    const auto inserts = InsertsBetween(chosen, input);
    Sides sides = FillSides(chosen, inserts, input);
    Stack stack(inserts);
    if (input.frontCover) {
        auto cover = TakeFrontCover(input, sides);
        const auto& last = cover.back.empty() ? cover.front : cover.back;
        const int lastPage = last.empty() ? 0 : last.back();
        stack.add(std::move(cover));
        stack.addInsertsUpTo(lastPage);
    }
    std::optional<PlannedSheet> back;
    if (input.backCover) back = TakeBackCover(input, sides);
    stack.addInsertsUpTo(0);
    for (Side& side : sides) stack.addSide(side);
    stack.addAllInserts();
    if (back) stack.add(*std::move(back));
    return stack.take();
}

/// Whether one of a booklet's places (1 .. `places`, as it is read) stays blank for its cover.
bool IsBlankOnCover(int place, int places, const std::optional<PlanCover>& cover) {
    if (!cover || cover->printedSides > 1) return false;
    const int fromOutside = std::min(place, places + 1 - place);
    return fromOutside == 2 || (fromOutside == 1 && cover->printedSides <= 0);
}

std::vector<PlannedSheet> PlanBooklet(const PlanInput& input, const std::vector<int>& chosen) {
    PlanInput plain = input;
    plain.exceptions.clear();
    Sides content = FillSides(chosen, {}, plain);
    int blank = 0;
    for (int place = 1; place <= kBookletPlaces; ++place)
        blank += IsBlankOnCover(place, kBookletPlaces, input.frontCover);
    const int wanted = static_cast<int>(content.size()) + blank;
    const int places = (wanted + kBookletPlaces - 1) / kBookletPlaces * kBookletPlaces;

    std::vector<std::vector<int>> at(static_cast<std::size_t>(places) + 1);
    auto next = content.begin();
    for (int place = 1; place <= places && next != content.end(); ++place) {
        if (!IsBlankOnCover(place, places, input.frontCover))
            at[static_cast<std::size_t>(place)] = std::move((next++)->pages);
    }
    const auto pair = [&at](int left, int right) {
        auto pages = at[static_cast<std::size_t>(left)];
        const auto& others = at[static_cast<std::size_t>(right)];
        pages.insert(pages.end(), others.begin(), others.end());
        return pages;
    };
    std::vector<PlannedSheet> sheets;
    for (int outer = 1; outer < places / 2; outer += 2) {
        sheets.push_back({.sides = PrintedSides::shortEdge,
                          .front = pair(places + 1 - outer, outer),
                          .back = pair(outer + 1, places - outer)});
    }
    if (input.frontCover && !sheets.empty()) {
        sheets.front().kind = SheetKind::frontCover;
        sheets.front().paper = input.frontCover->paper;
        if (input.frontCover->printedSides < 2) sheets.front().sides = PrintedSides::one;
    }
    return sheets;
}

}  // namespace

void AppendPages(const PlannedSheet& sheet, std::vector<int>& pages) {
    pages.insert(pages.end(), sheet.front.begin(), sheet.front.end());
    pages.insert(pages.end(), sheet.back.begin(), sheet.back.end());
}

std::vector<PageRange> RangesOfPages(std::vector<int> pages) {
    std::ranges::sort(pages);
    std::vector<PageRange> ranges;
    for (const int page : pages) {
        if (!ranges.empty() && page <= ranges.back().last + 1) {
            ranges.back().last = page;
        } else {
            ranges.push_back({page, page});
        }
    }
    return ranges;
}

std::int64_t SheetPlan::sheetsPerCopy() const {
    std::int64_t total = 0;
    for (const PlannedSheet& sheet : sheets) total += sheet.count;
    return total;
}

std::int64_t SheetPlan::printedSidesPerCopy() const {
    std::int64_t total = 0;
    for (const PlannedSheet& sheet : sheets) total += !sheet.front.empty() + !sheet.back.empty();
    return total;
}

std::vector<SheetRun> SheetPlan::runs() const {
    const auto formOf = [](const auto& part) {
        return std::tie(part.kind, part.paper, part.sides);
    };
    std::vector<SheetRun> runs;
    std::vector<int> pages;
    for (const PlannedSheet& sheet : sheets) {
        if (runs.empty() || formOf(runs.back()) != formOf(sheet)) {
            if (!runs.empty()) runs.back().pages = RangesOfPages(std::move(pages));
            pages.clear();
            runs.push_back({sheet.kind, sheet.paper, sheet.sides, {}, 0});
        }
        AppendPages(sheet, pages);
        runs.back().sheets += sheet.count;
    }
    if (!runs.empty()) runs.back().pages = RangesOfPages(std::move(pages));
    return runs;
}

std::vector<PageRange> PrintedOf(const PageRange& pages, const PlanInput& input) {
    const int count = input.pageCount > 0 ? input.pageCount : std::numeric_limits<int>::max();
    std::vector<PageRange> printed = input.pages;
    if (printed.empty()) printed = {{1, count}};
    for (PageRange& range : printed) {
        range = {std::max({range.first, pages.first, 1}),
                 std::min({range.last, pages.last, count})};
    }
    std::erase_if(printed, [](const PageRange& range) { return range.first > range.last; });
    return printed;
}

std::vector<PlanInsert> StandingInserts(const PlanInput& input) {
    return InsertsBetween(ChosenPages(input), input);
}

SheetPlan PlanSheets(const PlanInput& input) {
    const auto chosen = ChosenPages(input);
    SheetPlan plan{.copies = std::max(input.copies, 1)};
    if (chosen.empty()) return plan;
    plan.sheets = input.booklet ? PlanBooklet(input, chosen) : PlanInOrder(input, chosen);
    return plan;
}

}  // namespace kalmo
