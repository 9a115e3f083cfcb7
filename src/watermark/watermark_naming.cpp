#include "watermark/watermark_naming.h"

#include "shell/base/notices.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

constexpr CFIndex kLongestShownName = 60;
/// The store keeps its list of names among the entries, under this one.
#define kReservedName CFSTR("WatermarkListEntries")

}  // namespace

bool MayNameWatermark(CFBundleRef bundle, CFArrayRef taken, CFStringRef name) {
    const auto shown = CopyShownName(name);
    const CFTypeRef arguments[] = {shown.get()};
    if (CFEqual(name, kReservedName)) {
        const NoticeKeys keys{CFSTR("WatermarkReservedHeader"), CFSTR("WatermarkReservedMessage")};
        ShowNoticeWithKeys(bundle, keys, arguments, 1);
        return false;
    }
    if (!taken || !CFArrayContainsValue(taken, {0, CFArrayGetCount(taken)}, name)) return true;
    const NoticeKeys keys{CFSTR("WatermarkTakenHeader"), CFSTR("WatermarkTakenMessage")};
    return AskToDestroyWithKeys(bundle, keys, CFSTR("Cancel Command"), CFSTR("Replace"), arguments,
                                1);
}

Owned<CFStringRef> CopyShownName(CFStringRef name) {
    return CopyShortened(name, kLongestShownName);
}

Owned<CFStringRef> CopySentence(CFStringRef format, CFStringRef name) {
    const auto shown = CopyShownName(name);
    return Owned<CFStringRef>::Adopt(
        CFStringCreateWithFormat(kCFAllocatorDefault, format, shown.get()));
}

}  // namespace kalmo
