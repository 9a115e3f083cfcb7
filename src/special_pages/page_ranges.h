// Page numbers and ranges as a user types them, and the alerts for what is wrong with them.
#pragma once

#include <vector>

#include "foundation/bundle.h"
#include "foundation/string.h"
#include "kalmo/statuses.h"

namespace kalmo {

inline constexpr SInt32 kLastPageNumber = 99999;
/// Codes of the parser and of its callers.
inline constexpr OSStatus kPageNumberLimit = 1000, kInvalidPages = 1001, kInvalidRange = 1002,
                          kInvalidPageNumber = 1003, kPageRangeConflict = 1234;

struct PageRange {
    SInt32 first = 1, count = 1;
    bool operator==(const PageRange&) const = default;
};

/// "1, 3-5, 8-" in the order of the text, nothing sorted or joined: with `byRange` one record for
/// each range, else one for each page. 0, one of the first three codes, or paramErr; `*ranges` is
/// left alone but for 0. More than a million records are kInvalidPages.
OSStatus CreatePageRangesBySeparatingString(CFStringRef text, bool byRange,
                                            std::vector<PageRange>* ranges);
/// Shows the alert for a code; nothing for others.
void SpecialPagesUserNotification(OSStatus code, CFBundleRef bundle);

}  // namespace kalmo
