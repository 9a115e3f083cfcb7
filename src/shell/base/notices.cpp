#include "shell/base/notices.h"

#include <optional>

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

struct ButtonKeys {
    CFStringRef first, other;
};

/// Nothing when there is nobody to ask.
std::optional<bool> IsDefaultChosen(CFBundleRef bundle, const NoticeTexts& texts,
                                    const ButtonKeys& buttons, bool otherDestroys) {
    const auto first = CopyText(bundle, buttons.first), other = CopyText(bundle, buttons.other);
    const auto& alert = CurrentPresence().alert;
    if (!alert) return {};
    return alert({.header = texts.header,
                  .message = texts.message,
                  .defaultButton = first,
                  .alternateButton = other,
                  .alternateDestroys = otherDestroys});
}

}  // namespace

void ShowNoticeWithKeys(CFBundleRef bundle, const NoticeKeys& keys, const CFTypeRef* arguments,
                        CFIndex count) {
    const NoticeTexts texts = TextsOf(bundle, keys, arguments, count);
    ShowNotice(texts.header, texts.message);
}

bool AskWithKeys(CFBundleRef bundle, const NoticeKeys& keys, CFStringRef defaultButton,
                 CFStringRef otherButton, const CFTypeRef* arguments, CFIndex count) {
    return IsDefaultChosen(bundle, TextsOf(bundle, keys, arguments, count),
                           {defaultButton, otherButton}, false)
        .value_or(false);
}

bool AskToDestroyWithKeys(CFBundleRef bundle, const NoticeKeys& keys, CFStringRef keepButton,
                          CFStringRef destroyButton, const CFTypeRef* arguments, CFIndex count) {
    return !IsDefaultChosen(bundle, TextsOf(bundle, keys, arguments, count),
                            {keepButton, destroyButton}, true)
                .value_or(true);
}

}  // namespace kalmo
