// Page ranges of any text: both ways of reading agree, and no page lies outside the limits.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "special_pages/page_ranges.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace kalmo;
    const auto text = Owned<CFStringRef>::Adopt(
        CFStringCreateFromUTF8(std::string_view(reinterpret_cast<const char*>(bytes), size)));
    std::vector<PageRange> ranges, pages;
    const OSStatus status = CreatePageRangesBySeparatingString(text, true, &ranges);
    const OSStatus pageStatus = CreatePageRangesBySeparatingString(text, false, &pages);
    if (pageStatus == kInvalidPages && status != kInvalidPages) return 0;  // too many pages
    if (pageStatus != status) std::abort();
    auto page = pages.begin();
    for (const PageRange& range : ranges) {
        for (SInt32 i = 0; i < range.count; ++i, ++page) {
            if (page == pages.end() || *page != PageRange{range.first + i, 1}) std::abort();
        }
        if (range.first < 0 || range.first + range.count - 1 > kLastPageNumber) std::abort();
    }
    if (page != pages.end() || ranges.empty() != (status != 0)) std::abort();
    return 0;
}
