// Which pages lie on which sheets, on which paper, in the order in which they come out. Pure
// arithmetic over plain values.
//
// How special pages are understood here, where a ticket leaves it open:
// - Page numbers count the document's pages as its reader sees them, whatever is printed of it and
//   however many lie on a side. What belongs to a page that is not printed is not there.
// - A sheet has one paper and one way of being two-sided: where either changes, a sheet begins.
// - Inserts are blank or preprinted sheets of their own. The page behind one begins a sheet.
// - A cover is the outermost sheet, also where inserts stand before page 1 or after the last page.
//   A printed cover takes its sides from the document's first or last; a blank one is an addition.
// - A booklet is printed on both sides, two places on each. Its pages are not printed in their
//   order, so that inserts and exceptions have no place in it. Its one cover, the front one, is the
//   outermost of its sheets.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "print_dialog/job_settings.h"

namespace kalmo {

/// As tickets number them.
enum class PrintedSides { one = 1, longEdge = 2, shortEdge = 3 };

/// Papers are numbers that the caller gives; 0 is the job's own.
struct PlanCover {
    int paper = 0;
    int printedSides = 0;  // 0 blank or preprinted, 1 its front or a booklet's outside, 2 both
};
struct PlanInsert {
    int afterPage = 0;  // 0: before page 1
    int sheets = 1;     // 1 .. 999
    int paper = 0;
};
/// Of two that hold a page the later one counts.
struct PlanException {
    PageRange pages;
    int paper = 0;
    std::optional<PrintedSides> sides;  // none: the job's
};
struct PlanInput {
    int pageCount = 0;             // of the document
    std::vector<PageRange> pages;  // sorted, apart; empty: all
    int pagesPerSide = 1;
    PrintedSides sides = PrintedSides::one;
    bool booklet = false;
    int copies = 1;
    std::optional<PlanCover> frontCover, backCover;
    std::vector<PlanInsert> inserts;
    std::vector<PlanException> exceptions;
};

enum class SheetKind { page, frontCover, insert, backCover };

struct PlannedSheet {
    SheetKind kind = SheetKind::page;
    int paper = 0;
    PrintedSides sides = PrintedSides::one;  // one: its back stays blank
    int count = 1;                           // inserts: so many alike
    std::vector<int> front, back;            // pages from left to right, row by row
};

/// Neighbouring sheets of one kind, paper and way of being two-sided.
struct SheetRun {
    SheetKind kind = SheetKind::page;
    int paper = 0;
    PrintedSides sides = PrintedSides::one;
    std::vector<PageRange> pages;
    std::int64_t sheets = 0;
};

struct SheetPlan {
    std::vector<PlannedSheet> sheets;  // of one copy
    int copies = 1;

    [[nodiscard]] std::int64_t sheetsPerCopy() const;
    [[nodiscard]] std::int64_t sheetsInAll() const { return sheetsPerCopy() * copies; }
    /// Sides with at least one page, of one copy.
    [[nodiscard]] std::int64_t printedSidesPerCopy() const;
    [[nodiscard]] std::vector<SheetRun> runs() const;
};

/// Adds those of both sides.
void AppendPages(const PlannedSheet& sheet, std::vector<int>& pages);
/// Sorted, and joined where they touch.
[[nodiscard]] std::vector<PageRange> RangesOfPages(std::vector<int> pages);

/// Those of the input that come out, in their order; all of them without a document.
[[nodiscard]] std::vector<PlanInsert> StandingInserts(const PlanInput& input);

/// Those of `pages` that are printed, in order; without a document as far as it may have them.
[[nodiscard]] std::vector<PageRange> PrintedOf(const PageRange& pages, const PlanInput& input);

/// No sheets when no page is printed. Numbers outside their ranges count as the nearest end.
[[nodiscard]] SheetPlan PlanSheets(const PlanInput& input);

}  // namespace kalmo
