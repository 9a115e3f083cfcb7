#include "special_pages/special_page_list.h"

#include <algorithm>

#include "special_pages/added_pages.h"

namespace kalmo {

SpecialPageList::~SpecialPageList() = default;

SpecialPage* SpecialPageList::pageAtIndex(CFIndex index) const {
    return index < 0 || index >= count() ? nullptr : &pages_[static_cast<std::size_t>(index)];
}

CFIndex SpecialPageList::indexOfPage(const SpecialPage* page) const {
    const std::size_t index = pages_.indexOf(page);
    return index == pages_.size() ? kCFNotFound : static_cast<CFIndex>(index);
}

const SpecialPage* SpecialPageList::pageWithSerial(SInt64 serial) const {
    for (std::size_t i = 0; i < pages_.size(); ++i)
        if (pages_[i].serial() == serial) return &pages_[i];
    return nullptr;
}

void SpecialPageList::remove(const SpecialPage* page) {
    const std::size_t index = pages_.indexOf(page);
    if (index < pages_.size()) pages_.take(index);
}

void SpecialPageList::clear() {
    pages_.clear();
    isOrdered_ = true;
}

OSStatus SpecialPageList::update(const SpecialPage* old, CFArrayRef replacements) {
    const std::size_t index = pages_.indexOf(old);
    if (index == pages_.size()) return noErr;
    auto taken = pages_.take(index);
    const OSStatus status = add(replacements);
    if (status != noErr) insertAt(std::min(index, pages_.size()), std::move(taken));
    return status;
}

CFArrayRef SpecialPageList::asTicket() const {
    if (count() == 0) return nullptr;
    const CFMutableArrayRef ticket =
        CFArrayCreateMutable(kCFAllocatorDefault, count(), &kCFTypeArrayCallBacks);
    for (CFIndex i = 0; i < count(); ++i) {
        const auto dictionary = Owned<CFMutableDictionaryRef>::Adopt(pageAtIndex(i)->asTicket());
        if (dictionary) CFArrayAppendValue(ticket, dictionary.get());
    }
    return ticket;
}

void SpecialPageList::insertAt(std::size_t position, std::unique_ptr<SpecialPage> page) {
    page->mark_.watch(&isOrdered_);
    pages_.insert(position, std::move(page));
}

Owned<CFMutableArrayRef> ArrayOfPages(const std::vector<const SpecialPage*>& pages) {
    auto array = Owned<CFMutableArrayRef>::Adopt(
        CFArrayCreateMutable(kCFAllocatorDefault, static_cast<CFIndex>(pages.size()), nullptr));
    for (const SpecialPage* page : pages) CFArrayAppendValue(array, page);
    return array;
}

}  // namespace kalmo
