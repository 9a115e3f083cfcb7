// The pages of a list in their order, for ten thousands of them as quick as for ten.
#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include "special_pages/special_page.h"

namespace kalmo {

/// Owned pages by position. They lie in blocks: one that comes or goes moves those of its block,
/// not all that stand behind it. Positions are below size() (insert: up to it).
class PageSequence final {
public:
    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] SpecialPage& operator[](std::size_t index) const {
        seek(index);
        return *blocks_[block_].pages[index - before_];
    }
    /// size() when it is not there.
    [[nodiscard]] std::size_t indexOf(const SpecialPage* page) const;
    /// The first that `isBefore` does not hold for. It holds for none behind one that it does not
    /// hold for.
    template <typename IsBefore>
    [[nodiscard]] std::size_t partitionPoint(IsBefore isBefore) const;

    /// The first from `index` on whose key is `least` or more; size() when there is none. What was
    /// learned about a block spares a look at its pages the next time, so keys may fall between two
    /// calls, but not rise, until forgetKeys.
    template <typename KeyOf>
    [[nodiscard]] std::size_t firstReaching(std::size_t index, SInt32 least, KeyOf keyOf);
    void forgetKeys();

    void insert(std::size_t index, std::unique_ptr<SpecialPage> page);
    std::unique_ptr<SpecialPage> take(std::size_t index);
    void erase(std::size_t first, std::size_t end);
    void swap(std::size_t left, std::size_t right) { slot(left).swap(slot(right)); }
    void clear();

private:
    struct Block {
        std::vector<std::unique_ptr<SpecialPage>> pages;
        std::optional<SInt32> largestKey;  // no page has a larger one; nothing: unknown
    };

    void seek(std::size_t index) const;
    [[nodiscard]] std::unique_ptr<SpecialPage>& slot(std::size_t index) {
        seek(index);
        return blocks_[block_].pages[index - before_];
    }
    void splitBlock();

    /// At least one; none is empty but the only one.
    std::vector<Block> blocks_{1};
    std::size_t size_ = 0;
    // The block that was looked at last, where the next look mostly falls too, and what stands
    // before it.
    mutable std::size_t block_ = 0, before_ = 0;
};

template <typename IsBefore>
std::size_t PageSequence::partitionPoint(IsBefore isBefore) const {
    std::size_t first = 0, end = size_;
    while (first < end) {
        const std::size_t middle = first + (end - first) / 2;
        if (isBefore((*this)[middle]))
            first = middle + 1;
        else
            end = middle;
    }
    return first;
}

template <typename KeyOf>
std::size_t PageSequence::firstReaching(std::size_t index, SInt32 least, KeyOf keyOf) {
    while (index < size_) {
        seek(index);
        Block& block = blocks_[block_];
        if (!block.largestKey)
            block.largestKey = keyOf(**std::ranges::max_element(
                block.pages, {}, [&](const auto& page) { return keyOf(*page); }));
        const std::size_t end = before_ + block.pages.size();
        if (*block.largestKey < least) index = end;
        for (; index < end; ++index)
            if (keyOf(*block.pages[index - before_]) >= least) return index;
    }
    return size_;
}

}  // namespace kalmo
