#include "fax/fax_option_controls.h"

#include <optional>

#include "controls/input_limits.h"
#include "controls/modal_dialog.h"
#include "fax/dialing_string.h"
#include "fax/fax_options.h"
#include "settings/setting_maps.h"
#include "settings/setting_menus.h"
#include "shell/base/texts.h"
#include "system/clock.h"
#include "toolbox/events.h"

namespace kalmo {
namespace {

constexpr SInt64 kSecondsPerDay = 86'400, kSecondsPerMinute = 60;
constexpr SInt32 kDefaultSpeed = 3, kDefaultResolution = 2;
/// Item numbers of the two menus that stand for a boolean.
constexpr SInt32 kPrintConfirmationItem = 1, kNoConfirmationItem = 2, kNoCoverSheetItem = 1,
                 kCoverSheetItem = 2;

constexpr struct {
    SInt32 popup;
    const SettingMap* map;
} kMenus[] = {
    {kConfirmationID, ConfirmationSheetMap},
    {kSendSpeedID, FaxSendSpeedMap},
    {kResolutionID, FaxResolutionMap},
    {kCoverMenuID, CoverSheetMap},
};

Owned<CFStringRef> TextIn(ControlRef field) {
    return Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(field));
}

/// In seconds since 1904; none for now.
std::optional<SInt64> SendTimeIn(CFDictionaryRef options) {
    const auto stored = ValueOfType<CFNumberRef>(
        CFDictionaryGetValue(options, kFaxSendTimeProperty), CFNumberGetTypeID());
    if (!stored) return {};
    SInt64 seconds = 0;
    CFNumberGetValue(stored, kCFNumberSInt64Type, &seconds);
    return seconds;
}

DialingPart PartIn(CFDictionaryRef options, CFStringRef key) {
    const CFStringRef text = StringInDictionary(options, key);
    if (CFStringGetLength(text) == 0) return {};
    return {.isOn = true,
            .length = CFStringGetLength(text),
            .text = Owned<CFMutableStringRef>::Adopt(
                CFStringCreateMutableCopy(kCFAllocatorDefault, 0, text))};
}

void StorePart(CFMutableDictionaryRef options, CFStringRef key, const DialingPart& part) {
    if (part.isOn) {
        CFDictionarySetValue(options, key, part.text);
    } else {
        CFDictionaryRemoveValue(options, key);
    }
}

}  // namespace

SInt64 FaxSendTime(SInt64 chosen, SInt64 now) {
    return chosen < now ? chosen + kSecondsPerDay : chosen;
}

FaxOptionControls::FaxOptionControls(CFBundleRef bundle, WindowRef window)
    : bundle_(bundle), window_(window) {
    fillMenus();
    LimitInputLengthAndCharacters(control(kPrefixID), 0, kMaxDialingPrefix,
                                  kFaxDialingCharacterSet);
    LimitInputLengthAndCharacters(control(kCreditCardID), 0, kMaxCreditCard, kFaxDigitSet);
}

ControlRef FaxOptionControls::control(SInt32 id) const {
    ControlRef found = nullptr;
    GetControlByID(window_, {kDialogSignature, id}, &found);
    return found;
}

void FaxOptionControls::fillMenus() const {
    for (const auto& menu : kMenus)
        PopulatePopupButtonFromMap(bundle_, control(menu.popup), menu.map, JobContext::job, 0);
}

void FaxOptionControls::enable(SInt32 id, bool on) const {
    on ? EnableControl(control(id)) : DisableControl(control(id));
}

void FaxOptionControls::SyncToUI(CFDictionaryRef options) const {
    SetControl32BitValue(control(kConfirmationID),
                         BooleanOr(options, kFaxPrintConfirmationSheetProperty, true)
                             ? kPrintConfirmationItem
                             : kNoConfirmationItem);
    const SInt32 speed = NumberOr(options, kFaxSendSpeedProperty, kDefaultSpeed);
    const bool isKnown = speed >= 1 && speed <= CountMaps(FaxSendSpeedMap);
    SetControl32BitValue(control(kSendSpeedID), isKnown ? speed : kDefaultSpeed);
    const ControlRef resolution = control(kResolutionID);
    if (!SetPopupButtonToTicketValue(resolution,
                                     NumberOr(options, kFaxResolutionProperty, kDefaultResolution)))
        SetPopupButtonToTicketValue(resolution, kDefaultResolution);

    const std::optional<SInt64> sendTime = SendTimeIn(options);
    SetControl32BitValue(control(sendTime ? kSendAtID : kSendNowID), 1);
    // Without a stored time the user starts from the present minute.
    const SInt64 now = GetLongDateTime();
    SetControlDateTime(control(kSendTimeID), sendTime.value_or(now - now % kSecondsPerMinute));
    UpdateSendTimeControls(Focus::stays);

    setDialingPrefix(PartIn(options, kFaxDialingPrefixProperty));
    setCreditCard(PartIn(options, kFaxCreditCardProperty));

    const bool hasCover = BooleanOr(options, kFaxPrintCoverSheetProperty, false);
    SetControl32BitValue(control(kCoverMenuID), hasCover ? kCoverSheetItem : kNoCoverSheetItem);
    const CFStringRef stored = StringInDictionary(options, kFaxCoverSheetNotesProperty);
    if (hasCover && CFStringGetLength(stored) > 0)
        SetControlTitleWithCFString(control(kNotesID), stored);
    UpdateCoverSheetControls(Focus::stays);
}

void FaxOptionControls::SyncFromUI(CFMutableDictionaryRef options, SInt64 now) const {
    SetBoolean(options, kFaxPrintConfirmationSheetProperty,
               GetControl32BitValue(control(kConfirmationID)) == kPrintConfirmationItem);
    // The speed's item number, the resolution's value: they are the same today.
    CFDictionarySetValue(options, kFaxSendSpeedProperty,
                         CreateNumber(GetControl32BitValue(control(kSendSpeedID))));
    CFDictionarySetValue(options, kFaxResolutionProperty,
                         CreateNumber(GetPopupButtonTicketValue(control(kResolutionID))));
    if (GetControl32BitValue(control(kSendAtID)) == 1) {
        const SInt64 moment = FaxSendTime(GetControlDateTime(control(kSendTimeID)), now);
        CFDictionarySetNumber(options, kFaxSendTimeProperty, kCFNumberSInt64Type, &moment);
    } else {
        CFDictionaryRemoveValue(options, kFaxSendTimeProperty);
    }
    StorePart(options, kFaxDialingPrefixProperty, dialingPrefix());
    StorePart(options, kFaxCreditCardProperty, creditCard());

    const bool hasCover = GetControl32BitValue(control(kCoverMenuID)) == kCoverSheetItem;
    SetBoolean(options, kFaxPrintCoverSheetProperty, hasCover);
    if (!hasCover) return;
    if (const auto typed = notes(); CFStringGetLength(typed) > 0) {
        CFDictionarySetValue(options, kFaxCoverSheetNotesProperty, typed);
        CFDictionarySetValue(options, kFaxCoverLocalizedNotesLabel,
                             CopyText(bundle_, CFSTR("Notes Label"), kFaxTextTable));
    } else {
        // Kept as it is: notes of an earlier time stay, but without their label.
        CFDictionaryRemoveValue(options, kFaxCoverLocalizedNotesLabel);
    }
}

bool FaxOptionControls::enableIfChosen(SInt32 box, SInt32 field, Focus focus) const {
    const bool isOn = GetControl32BitValue(control(box)) == 1;
    enable(field, isOn);
    if (isOn && focus == Focus::follows) SetKeyboardFocus(control(field));
    return isOn;
}

void FaxOptionControls::UpdateSendTimeControls(Focus focus) const {
    enableIfChosen(kSendAtID, kSendTimeID, focus);
}

void FaxOptionControls::UpdateDialingPrefixControls(Focus focus) const {
    enableIfChosen(kPrefixBoxID, kPrefixID, focus);
}

void FaxOptionControls::UpdateCreditCardControls(Focus focus) const {
    enableIfChosen(kCreditCardBoxID, kCreditCardID, focus);
}

bool FaxOptionControls::UpdateCoverSheetControls(Focus focus) const {
    const bool hasCover = GetControl32BitValue(control(kCoverMenuID)) == kCoverSheetItem;
    for (const SInt32 id : {kNotesID, kNotesLabelID, kCoverSetupID}) enable(id, hasCover);
    if (hasCover && focus == Focus::follows) SetKeyboardFocus(control(kNotesID));
    return hasCover;
}

Owned<CFStringRef> FaxOptionControls::notes() const { return TextIn(control(kNotesID)); }

DialingPart FaxOptionControls::partOf(SInt32 box, SInt32 field) const {
    if (GetControl32BitValue(control(box)) != 1) return {};
    const auto text = TextIn(control(field));
    return {.isOn = true,
            .length = CFStringGetLength(text),
            .text = Owned<CFMutableStringRef>::Adopt(
                CFStringCreateMutableCopy(kCFAllocatorDefault, 0, text))};
}

/// The field keeps its text where there is none to put into it.
void FaxOptionControls::setPart(SInt32 box, SInt32 field, const DialingPart& part) const {
    SetControl32BitValue(control(box), part.isOn);
    if (part.text) SetControlTitleWithCFString(control(field), part.text);
    enableIfChosen(box, field, Focus::stays);
}

DialingPart FaxOptionControls::dialingPrefix() const { return partOf(kPrefixBoxID, kPrefixID); }
DialingPart FaxOptionControls::creditCard() const {
    return partOf(kCreditCardBoxID, kCreditCardID);
}
void FaxOptionControls::setDialingPrefix(const DialingPart& part) const {
    setPart(kPrefixBoxID, kPrefixID, part);
}
void FaxOptionControls::setCreditCard(const DialingPart& part) const {
    setPart(kCreditCardBoxID, kCreditCardID, part);
}

}  // namespace kalmo
