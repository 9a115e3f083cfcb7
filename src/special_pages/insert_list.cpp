#include "special_pages/added_pages.h"

namespace kalmo {
// A copy is put in order again, whatever the user has moved (kept as it is).
InsertList::InsertList(const InsertList& other) : SpecialPageList() { add(PagesOf(other)); }

Insert* InsertList::pageAtIndex(CFIndex index) const {
    return dynamic_cast<Insert*>(SpecialPageList::pageAtIndex(index));
}

OSStatus InsertList::add(CFArrayRef pages) {
    if (!isOrdered_) isOrdered_ = isSorted();
    for (auto& insert : ClonesOf<Insert>(pages)) {
        const std::size_t place = firstBehind(insert->startPage());
        insertAt(place, std::move(insert));
    }
    return noErr;
}

InsertList* InsertList::clone() const { return new InsertList(*this); }

bool InsertList::canPromote(const Insert* insert) const {
    const Insert* before = pageAtIndex(indexOfPage(insert) - 1);
    return before && before->startPage() != 0;
}

void InsertList::promote(const Insert* insert) {
    if (canPromote(insert)) swapWithNext(indexOfPage(insert) - 1);
}

bool InsertList::canDemote(const Insert* insert) const {
    const CFIndex index = indexOfPage(insert);
    const Insert* behind = index == kCFNotFound ? nullptr : pageAtIndex(index + 1);
    return behind && behind->startPage() != 0;
}

void InsertList::demote(const Insert* insert) {
    if (canDemote(insert)) swapWithNext(indexOfPage(insert));
}

void InsertList::swapWithNext(CFIndex index) {
    pages_.swap(static_cast<std::size_t>(index), static_cast<std::size_t>(index) + 1);
    isOrdered_ = false;
}

bool InsertList::isSorted() const {
    for (std::size_t i = 1; i < pages_.size(); ++i)
        if (pages_[i].startPage() < pages_[i - 1].startPage()) return false;
    return true;
}

std::size_t InsertList::firstBehind(SInt32 page) const {
    const auto isBefore = [&](const SpecialPage& held) { return held.startPage() <= page; };
    if (isOrdered_) return pages_.partitionPoint(isBefore);
    std::size_t i = 0;
    while (i < pages_.size() && isBefore(pages_[i])) ++i;
    return i;
}

}  // namespace kalmo
