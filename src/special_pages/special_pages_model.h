// The job's special pages as the panel and its dialogs edit them, and one step back.
#pragma once

#include <functional>
#include <memory>

#include "settings/ppd_access.h"
#include "special_pages/special_page_list.h"

namespace kalmo {

struct SpecialPages {
    std::unique_ptr<Cover> front, back;  // may be null
    std::unique_ptr<InsertList> inserts;
    std::unique_ptr<ExceptionPageList> exceptions;
};

struct SpecialPagesModel {
    CFBundleRef bundle = nullptr;  // lent
    PPDRef ppd = nullptr;          // lent; may be null
    /// The lists are always there.
    SpecialPages now{nullptr, nullptr, std::make_unique<InsertList>(),
                     std::make_unique<ExceptionPageList>()};
    /// Null where nothing was saved.
    SpecialPages before;
    std::unique_ptr<Stock> jobStock;  // null: unknown
    /// Two pages or more share a side, or lie as a booklet.
    bool hasLayout = false;
    /// Both covers are one sheet.
    bool isBooklet = false;
    /// Covers that are printed are printed on both sides.
    bool isTwoSided = false;
    /// After a dialog changed something.
    std::function<void()> changed;

    [[nodiscard]] bool canUndo() const;
};

/// Keeps copies of all four in the place of those kept before.
void SaveUndoState(SpecialPagesModel* model);
/// All four as they were kept, and nothing kept any more. Does nothing when nothing is kept.
void PerformUndo(SpecialPagesModel* model);

}  // namespace kalmo
