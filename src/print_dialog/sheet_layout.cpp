#include "print_dialog/sheet_layout.h"

#include <algorithm>

namespace kalmo {
namespace {

struct GridRow {
    int pagesPerSheet;
    int columns, rows;  // on a sheet for portrait pages
    bool across;        // the sheet lies across its pages
};
constexpr GridRow kGrids[] = {
    {1, 1, 1, false}, {2, 2, 1, true},  {4, 2, 2, false},
    {6, 3, 2, true},  {9, 3, 3, false}, {16, 4, 4, false},
};
static_assert(std::ranges::equal(kGrids, kPagesPerSheet, {}, &GridRow::pagesPerSheet));

/// A page that differs from the paper by rounding only still counts as fitting.
constexpr double kSlack = 2;

bool LiesAcross(const PageSize& page) { return page.width > page.height; }

PageSize Turned(const PageSize& page) { return {page.height, page.width}; }

SheetBox Imageable(const PPDPaper& paper) {
    const bool known = paper.right > paper.left && paper.top > paper.bottom;
    if (!known) return {0, 0, paper.width, paper.height};
    return {paper.left, paper.height - paper.top, paper.right - paper.left,
            paper.top - paper.bottom};
}

SheetBox Centred(const PageSize& page, double scale, const SheetBox& place) {
    const double width = page.width * scale;
    const double height = page.height * scale;
    return {place.x + (place.width - width) / 2, place.y + (place.height - height) / 2, width,
            height};
}

}  // namespace

Orientation DocumentOrientation(const std::vector<PageSize>& pages) {
    const auto across = std::ranges::count_if(pages, LiesAcross);
    return 2 * across > static_cast<std::ptrdiff_t>(pages.size()) ? Orientation::landscape
                                                                  : Orientation::portrait;
}

SheetLayout::SheetLayout(const PPDPaper& paper, const JobSettings& settings,
                         std::vector<PageSize> document)
    : paper_(paper),
      orientation_(settings.orientation),
      turnsPages_(DocumentOrientation(document) == settings.orientation),
      document_(std::move(document)) {
    const auto* row = std::ranges::find(kGrids, settings.pagesPerSheet, &GridRow::pagesPerSheet);
    if (row == std::end(kGrids)) row = kGrids;
    pagesPerSheet_ = row->pagesPerSheet;
    const bool landscape = orientation_ == Orientation::landscape;
    lies_ = landscape != row->across;
    const bool swapped = landscape && row->across;
    grid_ = swapped ? Grid{row->rows, row->columns} : Grid{row->columns, row->rows};

    const int count = static_cast<int>(document_.size());
    std::vector<PageRange> ranges = settings.pages;
    if (ranges.empty()) ranges = {{1, count}};
    for (const PageRange& range : ranges) {
        for (int page = std::max(range.first, 1); page <= std::min(range.last, count); ++page) {
            chosen_.push_back(page);
        }
    }
    keepsSize_ = fitsUnscaled();
}

int SheetLayout::sheetCount() const {
    return (static_cast<int>(chosen_.size()) + pagesPerSheet_ - 1) / pagesPerSheet_;
}

Sheet SheetLayout::emptySheet() const {
    const SheetBox area = Imageable(paper_);
    Sheet sheet{paper_.width, paper_.height, area, {}};
    if (!lies_) return sheet;
    // Read lying down. The filter has the same edges up for portrait and landscape, though the
    // paper itself is turned the other way round.
    sheet.width = paper_.height;
    sheet.height = paper_.width;
    sheet.imageable = {area.y, paper_.width - area.x - area.width, area.height, area.width};
    return sheet;
}

bool SheetLayout::isTurned(const PageSize& page) const {
    return turnsPages_ && LiesAcross(page) != (orientation_ == Orientation::landscape);
}

bool SheetLayout::fitsUnscaled() const {
    const Sheet sheet = emptySheet();
    return pagesPerSheet_ == 1 && std::ranges::all_of(chosen_, [&](int number) {
               PageSize page = document_[static_cast<std::size_t>(number - 1)];
               if (isTurned(page)) page = Turned(page);
               return page.width <= sheet.width + kSlack && page.height <= sheet.height + kSlack;
           });
}

PlacedPage SheetLayout::place(int number, const SheetBox& cell) const {
    PageSize page = document_[static_cast<std::size_t>(number - 1)];
    const bool turned = isTurned(page);
    if (turned) page = Turned(page);
    const double fit = page.width > 0 && page.height > 0
                           ? std::min(cell.width / page.width, cell.height / page.height)
                           : 0;
    return {number, Centred(page, fit, cell), turned};
}

Sheet SheetLayout::sheet(int index) const {
    Sheet sheet = emptySheet();
    if (index < 0 || index >= sheetCount()) return sheet;
    const SheetBox area = sheet.imageable;
    const PageSize cell{area.width / grid_.columns, area.height / grid_.rows};
    const std::size_t first = static_cast<std::size_t>(index) * pagesPerSheet_;
    const std::size_t last = std::min(first + pagesPerSheet_, chosen_.size());
    for (std::size_t at = first; at < last; ++at) {
        const int column = static_cast<int>(at - first) % grid_.columns;
        const int row = static_cast<int>(at - first) / grid_.columns;
        sheet.pages.push_back(place(
            chosen_[at],
            {area.x + column * cell.width, area.y + row * cell.height, cell.width, cell.height}));
    }
    if (!keepsSize_) return sheet;
    for (PlacedPage& placed : sheet.pages) {
        PageSize page = document_[static_cast<std::size_t>(placed.page - 1)];
        if (placed.turned) page = Turned(page);
        placed.box = Centred(page, 1, {0, 0, sheet.width, sheet.height});
    }
    return sheet;
}

std::vector<std::pair<std::string, std::string>> SheetLayout::jobOptions() const {
    std::vector<std::pair<std::string, std::string>> options;
    if (document_.empty()) return options;
    options.emplace_back("print-scaling", keepsSize_ ? "none" : "fit");
    if (orientation_ == Orientation::landscape) options.emplace_back("orientation-requested", "4");
    if (pagesPerSheet_ > 1) options.emplace_back("number-up", std::to_string(pagesPerSheet_));
    if (!turnsPages_) options.emplace_back("pdfAutoRotate", "no");
    return options;
}

}  // namespace kalmo
