// Which page of the document goes where on which sheet. Pure arithmetic, in points.
//
// A sheet is described as it is read: turned so that its pages stand upright, its origin at the
// upper left. It is what the print server's filter makes of the options of jobOptions().
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "print_dialog/job_settings.h"
#include "printing/ppd_papers.h"

namespace kalmo {

struct PageSize {
    double width = 0, height = 0;
};

struct SheetBox {
    double x = 0, y = 0, width = 0, height = 0;
};

struct PlacedPage {
    int page = 1;  // of the document, from 1
    SheetBox box;
    /// Turned a quarter to the right, so that a page that lies across fills its place.
    bool turned = false;
};

struct Sheet {
    double width = 0, height = 0;
    SheetBox imageable;
    std::vector<PlacedPage> pages;
};

/// Pages per sheet that are offered.
inline constexpr int kPagesPerSheet[] = {1, 2, 4, 6, 9, 16};

/// How most pages stand; portrait when there are none.
[[nodiscard]] Orientation DocumentOrientation(const std::vector<PageSize>& pages);

class SheetLayout final {
public:
    SheetLayout() = default;
    /// `document` holds the size of every page; of `settings`, pages, orientation and pages per
    /// sheet count. Ranges behind the document's end hold no page.
    SheetLayout(const PPDPaper& paper, const JobSettings& settings, std::vector<PageSize> document);

    [[nodiscard]] int sheetCount() const;
    [[nodiscard]] int pagesPerSheet() const { return pagesPerSheet_; }
    /// `index` is 0 .. sheetCount() - 1; an empty sheet otherwise.
    [[nodiscard]] Sheet sheet(int index) const;

    /// The job options that lay out the chosen pages so; none without a document. The choice itself
    /// is not among them: the server's option page-ranges counts sheets, not pages, as soon as a
    /// sheet holds several.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> jobOptions() const;

private:
    struct Grid {
        int columns = 1, rows = 1;
    };
    [[nodiscard]] Sheet emptySheet() const;
    [[nodiscard]] PlacedPage place(int page, const SheetBox& cell) const;
    [[nodiscard]] bool isTurned(const PageSize& page) const;
    [[nodiscard]] bool fitsUnscaled() const;

    PPDPaper paper_;
    Orientation orientation_ = Orientation::portrait;
    int pagesPerSheet_ = 1;
    Grid grid_;
    bool lies_ = false;       // the sheet is read with its long edge at the top
    bool keepsSize_ = true;   // every page fits on the paper as it is
    bool turnsPages_ = true;  // a page across the others is turned
    std::vector<PageSize> document_;
    std::vector<int> chosen_;
};

}  // namespace kalmo
