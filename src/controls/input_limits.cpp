#include "controls/input_limits.h"

#include <algorithm>
#include <iterator>

#include "shell/base/panel_interface.h"

namespace kalmo {
namespace {

/// Properties of the field under this creator: two lengths, the set, and what watches over them.
constexpr OSType kLimitsCreator = 'KPDE';
constexpr OSType kMaximumLength = 'Klen', kMinimumLength = 'Kmln', kAllowedCharacters = 'Kchr',
                 kLimitsHandler = 'Khdl';

template <typename Value>
Value Limit(ControlRef field, OSType tag, Value fallback) {
    GetControlProperty(field, kLimitsCreator, tag, sizeof fallback, nullptr, &fallback);
    return fallback;
}

OSStatus SetLengthLimit(ControlRef field, OSType tag, SInt32 length) {
    if (length >= 1) return SetControlProperty(field, kLimitsCreator, tag, sizeof length, &length);
    RemoveControlProperty(field, kLimitsCreator, tag);
    return noErr;
}

/// The field keeps one reference; the one that it had is released.
OSStatus SetAllowedCharacters(ControlRef field, CFCharacterSetRef allowed) {
    const auto before = Owned<CFCharacterSetRef>::Adopt(
        Limit<CFCharacterSetRef>(field, kAllowedCharacters, nullptr));
    RemoveControlProperty(field, kLimitsCreator, kAllowedCharacters);
    if (!allowed) return noErr;
    CFRetain(allowed);
    return SetControlProperty(field, kLimitsCreator, kAllowedCharacters, sizeof allowed, &allowed);
}

OSStatus WatchField(ControlRef field) {
    if (Limit<EventHandlerRef>(field, kLimitsHandler, nullptr)) return noErr;
    constexpr EventTypeSpec kEvents[] = {{kEventClassTextInput, kEventTextInput},
                                         {kEventClassControl, kEventControlDispose}};
    EventHandlerRef handler = nullptr;
    const OSStatus status = InstallControlEventHandler(
        field, LimitInputEventHandler, std::size(kEvents), kEvents, nullptr, &handler);
    if (status != noErr) return status;
    return SetControlProperty(field, kLimitsCreator, kLimitsHandler, sizeof handler, &handler);
}

CFIndex TextLength(ControlRef field) {
    const auto text = Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(field));
    return text ? CFStringGetLength(text) : 0;
}

bool MayEnter(ControlRef field, CFStringRef typed) {
    if (CFCharacterSetContainsText(CFCharacterSetGetPredefined(kCFCharacterSetControl), typed))
        return true;
    const CFIndex length =
        TextLength(field) - GetControlTextSelection(field).length + CFStringGetLength(typed);
    const auto most = Limit<SInt32>(field, kMaximumLength, 0);
    const auto allowed = Limit<CFCharacterSetRef>(field, kAllowedCharacters, nullptr);
    return (most < 1 || length <= most) && (!allowed || CFCharacterSetContainsText(allowed, typed));
}

OSStatus TakeInput(EventHandlerCallRef next, EventRef event) {
    const ControlRef field = GetEventControl(event);
    const CFStringRef typed = GetEventText(event);
    if (typed && !MayEnter(field, typed)) {
        SysBeep();
        return noErr;
    }
    const OSStatus status = CallNextEventHandler(next, event);
    SendEventToControl(field, kEventClassInputCheck, CheckInput(field));
    return status;
}

}  // namespace

OSStatus LimitInputLengthAndCharacters(ControlRef field, SInt32 minimumLength, SInt32 maximumLength,
                                       CFCharacterSetRef allowed) {
    if (!field) return paramErr;
    OSStatus status = SetLengthLimit(field, kMinimumLength, minimumLength);
    if (status == noErr) status = SetLengthLimit(field, kMaximumLength, maximumLength);
    if (status == noErr) status = SetAllowedCharacters(field, allowed);
    return status == noErr ? WatchField(field) : status;
}

UInt32 CheckInput(ControlRef field) {
    const CFIndex length = TextLength(field);
    if (length == 0) return kEventInputEmpty;
    return length < Limit<SInt32>(field, kMinimumLength, 1) ? kEventInputTooShort
                                                            : kEventInputLongEnough;
}

OSStatus LimitInputEventHandler(EventHandlerCallRef next, EventRef event, void*) {
    return WithoutExceptions(eventNotHandledErr, [&] {
        if (GetEventClass(event) == kEventClassTextInput) return TakeInput(next, event);
        SetAllowedCharacters(GetEventControl(event), nullptr);
        return eventNotHandledErr;
    });
}

}  // namespace kalmo
