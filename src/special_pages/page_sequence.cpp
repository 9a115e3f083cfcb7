#include "special_pages/page_sequence.h"

#include <algorithm>
#include <iterator>

namespace kalmo {
namespace {

constexpr std::size_t kLargestBlock = 512;

}  // namespace

std::size_t PageSequence::indexOf(const SpecialPage* page) const {
    // Round all blocks, from where the last look fell: there it mostly is, or next to it.
    for (std::size_t looked = 0; looked < blocks_.size(); ++looked) {
        const auto& pages = blocks_[block_].pages;
        const auto found =
            std::ranges::find_if(pages, [&](const auto& held) { return held.get() == page; });
        if (found != pages.end()) return before_ + static_cast<std::size_t>(found - pages.begin());
        if (block_ + 1 < blocks_.size()) {
            before_ += blocks_[block_++].pages.size();
        } else {
            block_ = before_ = 0;
        }
    }
    return size_;
}

void PageSequence::insert(std::size_t index, std::unique_ptr<SpecialPage> page) {
    seek(index);
    Block& block = blocks_[block_];
    block.pages.insert(block.pages.begin() + static_cast<std::ptrdiff_t>(index - before_),
                       std::move(page));
    block.largestKey.reset();
    ++size_;
    if (block.pages.size() > kLargestBlock) splitBlock();
}

std::unique_ptr<SpecialPage> PageSequence::take(std::size_t index) {
    auto page = std::move(slot(index));
    auto& pages = blocks_[block_].pages;
    pages.erase(pages.begin() + static_cast<std::ptrdiff_t>(index - before_));
    --size_;
    if (pages.empty() && blocks_.size() > 1) {
        blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(block_));
        block_ = before_ = 0;
    }
    return page;
}

void PageSequence::erase(std::size_t first, std::size_t end) {
    // The last of a block goes without a move of others.
    while (end > first) take(--end);
}

void PageSequence::forgetKeys() {
    for (Block& block : blocks_) block.largestKey.reset();
}

void PageSequence::clear() { *this = PageSequence(); }

/// Makes the block of `index` the one looked at; that of the last page for one behind it.
void PageSequence::seek(std::size_t index) const {
    while (index < before_) before_ -= blocks_[--block_].pages.size();
    while (index >= before_ + blocks_[block_].pages.size() && block_ + 1 < blocks_.size())
        before_ += blocks_[block_++].pages.size();
}

void PageSequence::splitBlock() {
    auto& full = blocks_[block_].pages;
    const auto middle = full.begin() + static_cast<std::ptrdiff_t>(full.size() / 2);
    Block behind;
    behind.pages.assign(std::make_move_iterator(middle), std::make_move_iterator(full.end()));
    full.erase(middle, full.end());
    blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(block_) + 1, std::move(behind));
}

}  // namespace kalmo
