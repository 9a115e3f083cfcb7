#include "watermark/stored_watermarks.h"

#include <iterator>

#include "foundation/locale.h"
#include "settings/user_preferences.h"
#include "watermark/watermark_naming.h"
#include "watermark/watermark_store.h"

namespace kalmo {
namespace {

constexpr CFIndex kNotInList = -1;

/// Of the editor's offsets.
SInt32 UsualUnits() {
    constexpr SInt32 kTenthsOfAnInch = 0, kMillimetres = 1;
    return CFLocaleUsesMetricSystem() ? kMillimetres : kTenthsOfAnInch;
}

}  // namespace

void StartWatermark(_WatermarkData& record) {
    setDefaultValues(record, UsualUnits());
    record.textMode = 1;
}

CFIndex IndexOfWatermarkName(CFArrayRef names, CFStringRef name) {
    const CFRange all{0, CFArrayGetCount(names)};
    return name ? CFArrayGetFirstIndexOfValue(names, all, name) : kNotInList;
}

void RemoveWatermarkName(CFMutableArrayRef names, CFStringRef name) {
    for (CFIndex index = IndexOfWatermarkName(names, name); index != kNotInList;
         index = IndexOfWatermarkName(names, name))
        CFArrayRemoveValueAtIndex(names, index);
}

Owned<CFMutableArrayRef> CopyNamesWith(CFArrayRef names, CFStringRef name, CFStringRef before) {
    auto changed =
        Owned<CFMutableArrayRef>::Adopt(CFArrayCreateMutableCopy(kCFAllocatorDefault, 0, names));
    const CFIndex place = IndexOfWatermarkName(changed, before);
    const bool renames = place != kNotInList && !CFEqual(name, before);
    const bool isNew = IndexOfWatermarkName(changed, name) == kNotInList;
    if (renames && isNew) {
        CFArraySetValueAtIndex(changed, place, name);
    } else if (isNew) {
        CFArrayAppendValue(changed, name);
    }
    if (renames) RemoveWatermarkName(changed, before);
    return changed;
}

bool SaveWatermark(CFStringRef storeName, const _WatermarkData& record, CFArrayRef names) {
    return saveWatermarkData(storeName, record) && saveWatermarkList(storeName, names);
}

void TellOfStore(CFBundleRef bundle, const NoticeKeys& keys, CFStringRef storeName,
                 CFStringRef name) {
    const auto url = Owned<CFURLRef>::Adopt(CopyPreferenceFileURL(storeName));
    const auto file = Owned<CFStringRef>::Adopt(url ? CFURLCopyFileSystemPath(url) : nullptr);
    const auto shown = CopyShownName(name);
    const CFTypeRef arguments[] = {shown.get(), file ? file.get() : storeName};
    ShowNoticeWithKeys(bundle, keys, arguments, std::size(arguments));
}

}  // namespace kalmo
