#include <algorithm>

#include "special_pages/added_pages.h"

namespace kalmo {
namespace {

bool HasPages(const ExceptionPage& range) { return range.startPage() <= range.endPage(); }

SInt32 EndOf(const SpecialPage& page) { return static_cast<const ExceptionPage&>(page).endPage(); }

/// Whether nothing is left of `old`.
bool Covers(const ExceptionPage& added, const ExceptionPage& old) {
    return added.startPage() <= std::min(old.startPage(), old.endPage()) &&
           added.endPage() >= std::max(old.startPage(), old.endPage());
}

}  // namespace

ExceptionPageList::ExceptionPageList(const ExceptionPageList& other) : SpecialPageList() {
    add(PagesOf(other));
}

ExceptionPage* ExceptionPageList::pageAtIndex(CFIndex index) const {
    return dynamic_cast<ExceptionPage*>(SpecialPageList::pageAtIndex(index));
}

OSStatus ExceptionPageList::add(CFArrayRef pages) {
    if (!isOrdered_) isOrdered_ = isSortedAndDisjoint();
    for (auto& exception : ClonesOf<ExceptionPage>(pages)) place(std::move(exception));
    // Until the next time anyone may change them.
    if (!isOrdered_) pages_.forgetKeys();
    return noErr;
}

ExceptionPageList* ExceptionPageList::clone() const { return new ExceptionPageList(*this); }

ExceptionPage& ExceptionPageList::at(std::size_t index) const {
    return static_cast<ExceptionPage&>(pages_[index]);  // add lets no others in
}

bool ExceptionPageList::isSortedAndDisjoint() const {
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        if (!HasPages(at(i))) return false;
        if (i > 0 && at(i).startPage() <= at(i - 1).endPage()) return false;
    }
    return true;
}

std::size_t ExceptionPageList::endOfCovered(const ExceptionPage& added, std::size_t first) const {
    while (first < pages_.size() && Covers(added, at(first))) ++first;
    return first;
}

/// From a range that starts before `added`: what lies behind `added` becomes a range of its own.
void ExceptionPageList::cutOut(std::size_t index, const ExceptionPage& added) {
    ExceptionPage& old = at(index);
    if (added.endPage() < old.endPage()) {
        auto rest = std::unique_ptr<ExceptionPage>(old.clone());
        rest->setStartPage(added.endPage() + 1);
        insertAt(index + 1, std::move(rest));
    }
    old.setEndPage(added.startPage() - 1);
}

/// Takes the pages of `added` from the others; where it belongs.
std::size_t ExceptionPageList::makeRoom(const ExceptionPage& added) {
    const auto endsBefore = [&](const SpecialPage& held) {
        return EndOf(held) < added.startPage();
    };
    std::size_t i = isOrdered_ ? pages_.partitionPoint(endsBefore) : 0;
    while (i < pages_.size()) {
        ExceptionPage& old = at(i);
        if (added.startPage() > old.endPage()) {
            i = pages_.firstReaching(i + 1, added.startPage(), EndOf);
        } else if (added.startPage() > old.startPage()) {
            if (HasPages(added)) cutOut(i, added);
            ++i;
        } else if (added.endPage() < old.startPage()) {
            break;
        } else if (added.endPage() < old.endPage()) {
            old.setStartPage(added.endPage() + 1);
            break;
        } else {
            pages_.erase(i, endOfCovered(added, i));
        }
    }
    return i;
}

void ExceptionPageList::place(std::unique_ptr<ExceptionPage> added) {
    const bool staysOrdered = isOrdered_ && HasPages(*added);
    const std::size_t position = makeRoom(*added);
    insertAt(position, std::move(added));
    isOrdered_ = staysOrdered;
}

}  // namespace kalmo
