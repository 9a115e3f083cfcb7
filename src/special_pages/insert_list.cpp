#include <algorithm>

#include "special_pages/added_pages.h"

namespace kalmo {
namespace {

SInt32 StartOf(const std::unique_ptr<SpecialPage>& page) { return page->startPage(); }

}  // namespace

// A copy is put in order again, whatever the user has moved (kept as it is).
InsertList::InsertList(const InsertList& other) : SpecialPageList() { add(PagesOf(other)); }

Insert* InsertList::pageAtIndex(CFIndex index) const {
    return dynamic_cast<Insert*>(SpecialPageList::pageAtIndex(index));
}

OSStatus InsertList::add(CFArrayRef pages) {
    if (!isOrdered_) isOrdered_ = std::ranges::is_sorted(pages_, {}, StartOf);
    for (auto& insert : ClonesOf<Insert>(pages)) {
        const SInt32 start = insert->startPage();
        const auto place = isOrdered_
                               ? std::ranges::upper_bound(pages_, start, {}, StartOf)
                               : std::ranges::find_if(
                                     pages_, [&](SInt32 other) { return other > start; }, StartOf);
        insertAt(static_cast<std::size_t>(place - pages_.begin()), std::move(insert));
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
    std::swap(pages_[static_cast<std::size_t>(index)], pages_[static_cast<std::size_t>(index) + 1]);
    isOrdered_ = false;
}

}  // namespace kalmo
