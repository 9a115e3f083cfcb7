// What a list is given to add.
#pragma once

#include <memory>
#include <vector>

#include "special_pages/special_page_list.h"

namespace kalmo {

/// Clones of the array's pages of one kind. All are made before the first is added: one of them may
/// stand in the list itself, and go when another takes its place.
template <typename Page>
[[nodiscard]] std::vector<std::unique_ptr<Page>> ClonesOf(CFArrayRef pages) {
    std::vector<std::unique_ptr<Page>> clones;
    for (CFIndex i = 0; i < CFArrayGetCount(pages); ++i) {
        const auto* page = static_cast<const SpecialPage*>(CFArrayGetValueAtIndex(pages, i));
        if (const auto* own = dynamic_cast<const Page*>(page)) clones.emplace_back(own->clone());
    }
    return clones;
}

/// The list's pages as an array for add; they stay where they are.
template <typename List>
[[nodiscard]] Owned<CFMutableArrayRef> PagesOf(const List& list) {
    std::vector<const SpecialPage*> pages;
    for (CFIndex i = 0; i < list.count(); ++i) pages.push_back(list.pageAtIndex(i));
    return ArrayOfPages(pages);
}

}  // namespace kalmo
