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

/// The buttons come as keys. Without anybody to ask nothing is destroyed.
bool Ask(CFBundleRef bundle, const NoticeTexts& texts, AlertTexts buttons) {
    const auto first = CopyText(bundle, buttons.defaultButton),
               second = CopyText(bundle, buttons.alternateButton);
    buttons.header = texts.header;
    buttons.message = texts.message;
    buttons.defaultButton = first;
    buttons.alternateButton = second;
    const auto& alert = CurrentPresence().alert;
    return alert ? alert(buttons) : buttons.alternateDestroys;
}

}  // namespace

void ShowNoticeWithKeys(CFBundleRef bundle, const NoticeKeys& keys, const CFTypeRef* arguments,
                        CFIndex count) {
    const NoticeTexts texts = TextsOf(bundle, keys, arguments, count);
    ShowNotice(texts.header, texts.message);
}

bool AskWithKeys(CFBundleRef bundle, const NoticeKeys& keys, CFStringRef defaultButton,
                 CFStringRef alternateButton, const CFTypeRef* arguments, CFIndex count) {
    return Ask(bundle, TextsOf(bundle, keys, arguments, count),
               {.defaultButton = defaultButton, .alternateButton = alternateButton});
}

bool AskToDestroyWithKeys(CFBundleRef bundle, const NoticeKeys& keys, CFStringRef keepButton,
                          CFStringRef destroyButton, const CFTypeRef* arguments, CFIndex count) {
    return !Ask(
        bundle, TextsOf(bundle, keys, arguments, count),
        {.defaultButton = keepButton, .alternateButton = destroyButton, .alternateDestroys = true});
}

}  // namespace kalmo
