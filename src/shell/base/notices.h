// Notices and questions, built from a header key and a message key whose text is a format.
#pragma once

#include "foundation/bundle.h"

namespace kalmo {

/// `arguments` fill the message's placeholders in order.
struct NoticeKeys {
    CFStringRef header;
    CFStringRef message;
    CFStringRef table = nullptr;
};

void ShowNoticeWithKeys(CFBundleRef bundle, const NoticeKeys& keys, const CFTypeRef* arguments,
                        CFIndex count);
/// True for the default button; Escape and an unattended run answer the other one.
bool AskWithKeys(CFBundleRef bundle, const NoticeKeys& keys, CFStringRef defaultButton,
                 CFStringRef otherButton, const CFTypeRef* arguments, CFIndex count);
/// Asks before something is lost for good: true only when the button that destroys was pressed
/// itself. The other one is the default, Escape's and an unattended run's.
bool AskToDestroyWithKeys(CFBundleRef bundle, const NoticeKeys& keys, CFStringRef keepButton,
                          CFStringRef destroyButton, const CFTypeRef* arguments, CFIndex count);

}  // namespace kalmo
