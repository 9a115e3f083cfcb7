#include "shell/base/notices.h"

#include "shell/base/texts.h"
#include "system/presence.h"
#include "toolbox/windows.h"

namespace kalmo {
namespace {

struct NoticeTexts {
    Owned<CFStringRef> header, message;
};

NoticeTexts TextsOf(CFBundleRef bundle, const NoticeKeys& keys, const CFTypeRef* arguments,
                    CFIndex count) {
    const auto format = CopyText(bundle, keys.message, keys.table);
    auto message = Owned<CFStringRef>::Adopt(
        CFStringCreateWithFormatAndValues(kCFAllocatorDefault, format, arguments, count));
    return {CopyText(bundle, keys.header, keys.table), message ? message : format};
}

}  // namespace

void ShowNoticeWithKeys(CFBundleRef bundle, const NoticeKeys& keys, const CFTypeRef* arguments,
                        CFIndex count) {
    const NoticeTexts texts = TextsOf(bundle, keys, arguments, count);
    ShowNotice(texts.header, texts.message);
}

bool AskToDestroyWithKeys(CFBundleRef bundle, const NoticeKeys& keys, CFStringRef keepButton,
                          CFStringRef destroyButton, const CFTypeRef* arguments, CFIndex count) {
    const NoticeTexts texts = TextsOf(bundle, keys, arguments, count);
    const auto keep = CopyText(bundle, keepButton), destroy = CopyText(bundle, destroyButton);
    const auto& alert = CurrentPresence().alert;
    return alert && !alert({.header = texts.header,
                            .message = texts.message,
                            .defaultButton = keep,
                            .alternateButton = destroy,
                            .alternateDestroys = true});
}

}  // namespace kalmo
