#include <algorithm>
#include <charconv>

#include "print_dialog/job_settings.h"

namespace kalmo {
namespace {

constexpr std::string_view kBlanks = " \t\u00a0";

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// The whole of `text` as a page number; people write "3 - 5" too.
std::optional<int> ParsePage(std::string_view text, int pageCount) {
    text = Trimmed(text);
    int page = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), page);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    if (page < 1 || page > pageCount) return std::nullopt;
    return page;
}

std::optional<PageRange> ParseRange(std::string_view text, int pageCount) {
    const auto dash = text.find('-');
    const auto first = ParsePage(text.substr(0, dash), pageCount);
    const auto last =
        dash == std::string_view::npos ? first : ParsePage(text.substr(dash + 1), pageCount);
    if (!first || !last || *last < *first) return std::nullopt;
    return PageRange{*first, *last};
}

std::vector<PageRange> Merged(std::vector<PageRange> ranges) {
    std::ranges::sort(ranges, {}, &PageRange::first);
    std::vector<PageRange> merged;
    for (const PageRange& range : ranges) {
        if (!merged.empty() && range.first <= merged.back().last + 1) {
            merged.back().last = std::max(merged.back().last, range.last);
        } else {
            merged.push_back(range);
        }
    }
    return merged;
}

}  // namespace

std::optional<std::vector<PageRange>> ParsePageRanges(std::string_view text, int pageCount) {
    std::vector<PageRange> ranges;
    for (std::size_t start = 0; start <= text.size();) {
        const auto end = std::min(text.find_first_of(",;", start), text.size());
        const auto range = ParseRange(text.substr(start, end - start), pageCount);
        if (!range) return std::nullopt;
        ranges.push_back(*range);
        start = end + 1;
    }
    return Merged(std::move(ranges));
}

std::string PageRangesText(const std::vector<PageRange>& ranges) {
    std::string text;
    for (const PageRange& range : ranges) {
        if (!text.empty()) text += ',';
        text += std::to_string(range.first);
        if (range.last != range.first) text += '-' + std::to_string(range.last);
    }
    return text;
}

}  // namespace kalmo
