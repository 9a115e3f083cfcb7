#include <algorithm>
#include <iterator>

#include "paper_output/finishing.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

struct KeyRow {
    SInt32 value;
    CFStringRef key;
};
const KeyRow kBookletFolds[] = {{kFoldBi, CFSTR("Booklet Fold")},
                                {kFoldBiStaple, CFSTR("Booklet FoldStaple")}};
const KeyRow kPunches[] = {{2, CFSTR("HolePunch")},
                           {3, CFSTR("2 Hole Punch")},
                           {4, CFSTR("3 Hole Punch")},
                           {5, CFSTR("4 Hole Punch")}};
const KeyRow kFolds[] = {{kFoldC, CFSTR("FoldCFold")},
                         {kFoldZ, CFSTR("FoldZFold")},
                         {kFoldZHalfSheet, CFSTR("Z Fold Half Sheet")},
                         {kFoldBi, CFSTR("BiFoldNoStaple")}};

template <std::size_t Count>
CFStringRef KeyOf(const KeyRow (&rows)[Count], SInt32 value, CFStringRef otherwise) {
    const auto* const row = std::ranges::find(rows, value, &KeyRow::value);
    return row == std::end(rows) ? otherwise : row->key;
}

/// The first group that has staples names the line, whatever its value.
CFStringRef StapleKey(const Finishing& finishing) {
    if (finishing.singleStaple != kNoFinishing) return CFSTR("1 Staple");
    if (finishing.dualStaple != kNoFinishing) return CFSTR("2 Staples");
    if (finishing.multipleStaple != kNoFinishing) return CFSTR("Multiple Staples");
    return CFSTR("No Staple Value");
}

std::vector<CFStringRef> BookletKeys(const Finishing& finishing, bool bookletLayout) {
    std::vector keys{KeyOf(kBookletFolds, finishing.fold, CFSTR("No Fold"))};
    if (bookletLayout) keys.push_back(CFSTR("Booklet Layout"));
    return keys;
}

}  // namespace

std::vector<CFStringRef> FinishingSummaryKeys(const Finishing& finishing, bool bookletLayout,
                                              const FinishingDevices& devices) {
    if (bookletLayout || finishing.option == kOptionBooklet)
        return BookletKeys(finishing, bookletLayout);
    std::vector<CFStringRef> keys;
    if (devices.hasStapler) keys.push_back(StapleKey(finishing));
    if (devices.hasPuncher) keys.push_back(KeyOf(kPunches, finishing.punch, CFSTR("NoHolePunch")));
    if (devices.hasFolder) keys.push_back(KeyOf(kFolds, finishing.fold, CFSTR("No Fold")));
    return keys;
}

CFStringRef CreateFinishingString(CFBundleRef bundle, const Finishing& finishing,
                                  bool bookletLayout, const FinishingDevices& devices) {
    const CFMutableStringRef lines = CFStringCreateMutable(kCFAllocatorDefault, 0);
    for (const CFStringRef key : FinishingSummaryKeys(finishing, bookletLayout, devices)) {
        CFStringAppend(lines, CFSTR("- "));
        CFStringAppend(lines, CopyText(bundle, key));
        CFStringAppend(lines, CFSTR("\n"));
    }
    return lines;
}

}  // namespace kalmo
