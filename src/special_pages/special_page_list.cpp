#include "special_pages/special_page_list.h"

#include <algorithm>

#include "special_pages/added_pages.h"

namespace kalmo {

SpecialPageList::~SpecialPageList() = default;

SpecialPage* SpecialPageList::pageAtIndex(CFIndex index) const {
    return index < 0 || index >= count() ? nullptr : pages_[static_cast<std::size_t>(index)].get();
}

CFIndex SpecialPageList::indexOfPage(const SpecialPage* page) const {
    const auto found =
        std::ranges::find_if(pages_, [&](const auto& held) { return held.get() == page; });
    return found == pages_.end() ? kCFNotFound : found - pages_.begin();
}

void SpecialPageList::remove(const SpecialPage* page) {
    const CFIndex index = indexOfPage(page);
    if (index != kCFNotFound) pages_.erase(pages_.begin() + index);
}

void SpecialPageList::clear() {
    pages_.clear();
    isOrdered_ = true;
}

OSStatus SpecialPageList::update(const SpecialPage* old, CFArrayRef replacements) {
    const CFIndex index = indexOfPage(old);
    if (index == kCFNotFound) return noErr;
    const auto position = pages_.begin() + index;
    auto taken = std::move(*position);
    pages_.erase(position);
    const OSStatus status = add(replacements);
    if (status != noErr) insertAt(std::min<std::size_t>(index, pages_.size()), std::move(taken));
    return status;
}

CFArrayRef SpecialPageList::asTicket() const {
    if (pages_.empty()) return nullptr;
    const CFMutableArrayRef ticket =
        CFArrayCreateMutable(kCFAllocatorDefault, count(), &kCFTypeArrayCallBacks);
    for (const auto& page : pages_) {
        const auto dictionary = Owned<CFMutableDictionaryRef>::Adopt(page->asTicket());
        if (dictionary) CFArrayAppendValue(ticket, dictionary.get());
    }
    return ticket;
}

void SpecialPageList::insertAt(std::size_t position, std::unique_ptr<SpecialPage> page) {
    page->mark_.watch(&isOrdered_);
    pages_.insert(pages_.begin() + static_cast<CFIndex>(position), std::move(page));
}

Owned<CFMutableArrayRef> ArrayOfPages(const std::vector<const SpecialPage*>& pages) {
    auto array = Owned<CFMutableArrayRef>::Adopt(
        CFArrayCreateMutable(kCFAllocatorDefault, static_cast<CFIndex>(pages.size()), nullptr));
    for (const SpecialPage* page : pages) CFArrayAppendValue(array, page);
    return array;
}

}  // namespace kalmo
