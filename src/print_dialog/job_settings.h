// What the dialog's own side decides about a job: copies, pages, paper, sheet layout.
//
// Plain values; the pane's choices are not here, they live in the session's tickets.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kalmo {

enum class Orientation { portrait = 1, landscape = 2 };

/// Pages first .. last, from 1, ends inclusive.
struct PageRange {
    int first = 1;
    int last = 1;
    bool operator==(const PageRange&) const = default;
};

/// "1-3, 5" against a document of `pageCount` pages. Nothing for anything else: letters, page 0, a
/// page behind the end, an end before its start, an empty text. Ranges come sorted, merged where
/// they touch or overlap.
[[nodiscard]] std::optional<std::vector<PageRange>> ParsePageRanges(std::string_view text,
                                                                    int pageCount);
/// "1-3,5", the form of the job option page-ranges.
[[nodiscard]] std::string PageRangesText(const std::vector<PageRange>& ranges);

inline constexpr int kMostCopies = 999;

struct JobSettings {
    int copies = 1;  // 1 .. kMostCopies
    bool collate = true;
    std::vector<PageRange> pages;  // empty: all
    std::string paper;             // PageSize keyword of the PPD; empty: its default
    Orientation orientation = Orientation::portrait;
    bool orientationChosen = false;  // by the user or a ticket; else it is the document's own
    int pagesPerSheet = 1;           // 1, 2, 4, 6, 9, 16
    std::string inputSlot;           // keyword; empty: not chosen
    std::string colorOption;  // the PPD's colour option ("KLMColor", "ColorModel"); empty: none
    std::string colorChoice;  // its keyword
    bool operator==(const JobSettings&) const = default;
};

}  // namespace kalmo
