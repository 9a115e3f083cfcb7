// PPD choices and their ticket values: one table of tables.
#pragma once

#include <optional>

#include "foundation/string.h"

namespace kalmo {

struct PPDChoiceRow {
    CFStringRef choice = nullptr;  // null ends the map
    SInt32 value = 0;
};
struct MainKeywordRow {
    CFStringRef keyword = nullptr;  // null ends the map
    const PPDChoiceRow* choices = nullptr;
};
extern const MainKeywordRow MainKeywordMap[];

// The choice maps that other rooms name.
extern const PPDChoiceRow _PageSizeMap[], _MediaTypeMap[], _MediaColorMap[], _OutputBinMap[],
    _PPDDuplexMap[], _KLStapleMap[], _KLFoldMap[], _KLPunchMap[], _RequestOffsetMap[],
    _SlipSheetMap[];

/// -1 when the keyword or the choice is not in the map; -1 is also a real value of
/// "KLImageQuality".
[[nodiscard]] SInt32 PPDTicketValueForChoice(CFStringRef keyword, CFStringRef choice);
/// The same, telling a miss apart from every value.
[[nodiscard]] std::optional<SInt32> FindTicketValueForChoice(CFStringRef keyword,
                                                             CFStringRef choice);
/// The first choice of that value in table order, borrowed; null when there is none.
[[nodiscard]] CFStringRef PPDChoiceForTicketValue(CFStringRef keyword, SInt32 value);

}  // namespace kalmo
