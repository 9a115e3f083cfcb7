#include "controls/spin_control.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <iterator>
#include <optional>
#include <string>

#include "foundation/character_set.h"
#include "foundation/locale.h"
#include "shell/base/panel_interface.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

constexpr UniChar kEnterKey = 3, kReturnKey = 13, kUpKey = 30, kDownKey = 31;
/// What a text may end with; an angle's sign goes before the other.
constexpr char kAngleSign[] = "\u02DA", kPercentSign[] = "%";

bool HasProperty(ControlRef control, OSType tag) {
    return GetControlProperty(control, kSpinCreator, tag, 0, nullptr, nullptr) == noErr;
}

/// 0 when there is no such property.
SInt32 NumberProperty(ControlRef control, OSType tag) {
    SInt32 number = 0;
    GetControlProperty(control, kSpinCreator, tag, sizeof number, nullptr, &number);
    return number;
}

OSStatus SetNumberProperty(ControlRef control, OSType tag, SInt32 number) {
    return SetControlProperty(control, kSpinCreator, tag, sizeof number, &number);
}

/// The control whose id a property of `control` holds; null when there is none.
ControlRef RelatedControl(ControlRef control, OSType tag) {
    ControlID id{};
    ControlRef related = nullptr;
    if (!HasProperty(control, tag) || GetControlID(control, &id) != noErr) return nullptr;
    id.id = NumberProperty(control, tag);
    return GetControlByID(GetControlOwner(control), id, &related) == noErr ? related : nullptr;
}

void SetValid(ControlRef arrows, bool valid) {
    const auto stored = static_cast<Boolean>(valid);
    SetControlProperty(arrows, kSpinCreator, kSpinValid, sizeof stored, &stored);
}

/// Of nothing: an empty text.
Owned<CFMutableStringRef> MutableCopy(CFStringRef text) {
    return Owned<CFMutableStringRef>::Adopt(
        CFStringCreateMutableCopy(kCFAllocatorDefault, 0, text ? text : CFSTR("")));
}

/// Null for a plain number.
const char* SignOf(ControlRef arrows) {
    if (HasProperty(arrows, kSpinAngle)) return kAngleSign;
    return HasProperty(arrows, kSpinPercent) ? kPercentSign : nullptr;
}

Owned<CFStringRef> TextOfValue(ControlRef arrows, SInt32 value) {
    const auto number = Owned<CFStringRef>::Adopt(CreateLocalizedCFStringFromNumberWithDecimals(
        value, NumberProperty(arrows, kSpinDecimals)));
    const char* const sign = SignOf(arrows);
    if (!number || !sign) return number;
    auto text = MutableCopy(number);
    CFStringAppend(text, CFStringMakeConstant(sign));
    return text;
}

/// The field's text without blanks and sign.
Owned<CFStringRef> NumberText(ControlRef arrows, ControlRef field) {
    const auto typed = Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(field));
    auto text = MutableCopy(typed);
    CFStringTrim(text, CFSTR(" "));
    if (const char* const sign = SignOf(arrows)) CFStringTrim(text, CFStringMakeConstant(sign));
    CFStringTrim(text, CFSTR(" "));
    return text;
}

/// The arrows' number for a text: cut to whole units, perhaps beyond 32 bits. Nothing for a text
/// that is no number.
std::optional<double> ParsedValue(CFStringRef text, SInt32 decimals) {
    if (CFStringGetLength(text) == 0) return 0;
    const std::optional<double> number = CFLocaleNumberFromString(text);
    if (!number) return std::nullopt;
    if (decimals <= 0) return std::trunc(*number);
    // Single precision as it stands: what is typed must come out the same on every system.
    const float scale = std::pow(10.0F, static_cast<float>(decimals));
    return std::trunc(static_cast<float>(*number) * scale);
}

SInt32 Saturated(double value) {
    return static_cast<SInt32>(std::clamp<double>(value, INT32_MIN, INT32_MAX));
}

void ShowInSlider(ControlRef arrows, SInt32 value) {
    const ControlRef slider = RelatedControl(arrows, kSpinOtherControl);
    SetControl32BitValue(slider, value);
    SetControlNeedsDisplay(slider);
}

void TellChange(ControlRef arrows) {
    SendEventToControl(arrows, kEventClassSpin, kEventSpinChanged);
}

void WriteBack(ControlRef arrows) { SetSpinControlValue(arrows, GetControl32BitValue(arrows)); }

/// One step up (1) or down (-1), no further than the bounds; at the bound the text is shown anew.
void Step(ControlRef arrows, int direction) {
    SInt32 increment = 1;
    GetControlData(arrows, kControlIncrementTag, sizeof increment, nullptr, &increment);
    const SInt64 value = GetControl32BitValue(arrows);
    const SInt64 least = GetControl32BitMinimum(arrows), most = GetControl32BitMaximum(arrows);
    if (direction > 0 ? value >= most : value <= least) SysBeep();
    const SInt64 next = std::clamp(value + SInt64{direction} * increment, least, most);
    SetSpinControlValue(arrows, static_cast<SInt32>(next));
    TellChange(arrows);
}

/// The part of the arrows that a key stands for; 0 for any other text.
SInt16 PartOfKey(CFStringRef text) {
    if (CFStringGetLength(text) != 1) return 0;
    const UniChar key = CFStringGetCharacterAtIndex(text, 0);
    if (key == kUpKey) return kControlUpButtonPart;
    return key == kDownKey ? kControlDownButtonPart : SInt16{0};
}

std::u16string CharactersOf(EventRef event) {
    const CFStringRef text = GetEventText(event);
    std::u16string characters(text ? CFStringGetLength(text) : 0, u'\0');
    if (text) CFStringGetCharacters(text, {0, CFStringGetLength(text)}, characters.data());
    return characters;
}

bool MayEnter(EventRef event) {
    const std::u16string characters = CharactersOf(event);
    return characters.find_first_of({kEnterKey, kReturnKey}) == std::u16string::npos &&
           SpinControlValidateInput(characters.data(), GetEventTextByteSize(event));
}

/// The handler is the field's own; its arrows may have gone before it.
OSStatus TakeInput(EventHandlerCallRef next, EventRef event) {
    const ControlRef field = GetEventControl(event);
    const ControlRef arrows = SpinControlGetRelatedArrows(field);
    if (!arrows) return eventNotHandledErr;
    if (const SInt16 part = GetEventText(event) ? PartOfKey(GetEventText(event)) : SInt16{0}) {
        SpinControlArrowsActionProc(arrows, part);
        return noErr;
    }
    if (!MayEnter(event)) {
        SysBeep();
        return noErr;
    }
    const OSStatus status = CallNextEventHandler(next, event);
    SpinControlValidate(field);
    TellChange(SpinControlGetRelatedArrows(field));
    return status;
}

struct SpinParts {
    ControlRef arrows = nullptr, field = nullptr, slider = nullptr;
};

OSStatus FindParts(WindowRef window, OSType signature, const SpinControlSetup& setup,
                   SpinParts* parts) {
    OSStatus status = GetControlByID(window, {signature, setup.arrows}, &parts->arrows);
    if (status == noErr) status = GetControlByID(window, {signature, setup.field}, &parts->field);
    if (status != noErr || !setup.slider) return status;
    return GetControlByID(window, {signature, setup.slider}, &parts->slider);
}

void DescribeArrows(ControlRef arrows, const SpinControlSetup& setup) {
    using Sign = SpinControlSetup::Sign;
    SetNumberProperty(arrows, kSpinEditField, setup.field);
    SetNumberProperty(arrows, kSpinDecimals, setup.decimals);
    if (setup.slider) SetNumberProperty(arrows, kSpinOtherControl, setup.slider);
    if (setup.redraw) SetNumberProperty(arrows, kSpinRedraw, setup.redraw);
    if (setup.sign == Sign::angle) SetNumberProperty(arrows, kSpinAngle, 1);
    if (setup.sign == Sign::percent) SetNumberProperty(arrows, kSpinPercent, 1);
}

}  // namespace

OSStatus SetUpSpinControl(WindowRef window, OSType signature, const SpinControlSetup& setup) {
    SpinParts parts;
    const OSStatus status = FindParts(window, signature, setup, &parts);
    if (status != noErr) return status;
    for (const ControlRef control : {parts.arrows, parts.slider}) {
        SetControl32BitMinimum(control, setup.minimum);
        SetControl32BitMaximum(control, setup.maximum);
    }
    SetControlData(parts.arrows, kControlIncrementTag, sizeof setup.step, &setup.step);
    DescribeArrows(parts.arrows, setup);
    for (const ControlRef control : {parts.field, parts.slider})
        SetNumberProperty(control, kSpinArrows, setup.arrows);
    SetControlAction(parts.slider, SpinSliderActionProc);
    return CreateSpinControl(parts.arrows);
}

OSStatus CreateSpinControl(ControlRef arrows) {
    if (!arrows) return paramErr;
    SInt32 id = 0;
    const OSStatus status =
        GetControlProperty(arrows, kSpinCreator, kSpinEditField, sizeof id, nullptr, &id);
    if (status != noErr) return status;
    constexpr EventTypeSpec kEvents[] = {{kEventClassTextInput, kEventTextInput},
                                         {kEventClassControl, kEventControlSetFocusPart}};
    InstallControlEventHandler(RelatedControl(arrows, kSpinEditField), SpinControlEventHandler,
                               std::size(kEvents), kEvents, arrows, nullptr);
    SetControlAction(arrows, SpinControlArrowsActionProc);
    return noErr;
}

void DisposeSpinControl(ControlRef) {}

OSStatus SetSpinControlValue(ControlRef arrows, SInt32 value, Boolean) {
    if (!arrows) return paramErr;
    SetControl32BitValue(arrows, value);
    if (GetControl32BitValue(arrows) != value) {
        SysBeep();
        return paramErr;
    }
    SetControlNeedsDisplay(RelatedControl(arrows, kSpinRedraw));
    if (const auto text = TextOfValue(arrows, value))
        SetControlTitleWithCFString(RelatedControl(arrows, kSpinEditField), text);
    SetValid(arrows, true);
    ShowInSlider(arrows, value);
    return noErr;
}

void SpinControlValidate(ControlRef field) {
    const ControlRef arrows = SpinControlGetRelatedArrows(field);
    if (!arrows) return;
    const auto parsed =
        ParsedValue(NumberText(arrows, field), NumberProperty(arrows, kSpinDecimals));
    // On the way to a number, such as a lone "-", the last one stays.
    if (parsed) SetControl32BitValue(arrows, Saturated(*parsed));
    const SInt32 value = GetControl32BitValue(arrows);
    SetValid(arrows, parsed && *parsed == value);
    SetControlNeedsDisplay(RelatedControl(arrows, kSpinRedraw));
    ShowInSlider(arrows, value);
}

bool SpinControlValidateInput(const UniChar* characters, UInt32 byteSize) {
    const auto count = static_cast<CFIndex>(byteSize / sizeof(UniChar));
    const auto typed = Owned<CFStringRef>::Adopt(
        CFStringCreateWithCharacters(kCFAllocatorDefault, characters, count));
    if (!typed) return false;
    if (CFCharacterSetContainsText(CFCharacterSetGetPredefined(kCFCharacterSetControl), typed))
        return true;
    const auto separator = Owned<CFStringRef>::Adopt(CFLocaleCopyDecimalSeparator());
    const auto others = MutableCopy(separator);
    CFStringAppend(others, CFSTR("-"));
    const auto marks = Owned<CFCharacterSetRef>::Adopt(
        CFCharacterSetCreateWithCharactersInString(kCFAllocatorDefault, others));
    const CFCharacterSetRef digits = CFCharacterSetGetPredefined(kCFCharacterSetDecimalDigit);
    return std::all_of(characters, characters + count, [&](UniChar character) {
        return CFCharacterSetIsCharacterMember(digits, character) ||
               CFCharacterSetIsCharacterMember(marks, character);
    });
}

bool SpinControlIsInputValid(ControlRef arrows) {
    Boolean valid = true;
    GetControlProperty(arrows, kSpinCreator, kSpinValid, sizeof valid, nullptr, &valid);
    return valid;
}

void RefuseSpinControl(ControlRef arrows) {
    const ControlRef field = RelatedControl(arrows, kSpinEditField);
    SysBeep();
    SetKeyboardFocus(field);
    const auto least = TextOfValue(arrows, GetControl32BitMinimum(arrows));
    const auto most = TextOfValue(arrows, GetControl32BitMaximum(arrows));
    const CFBundleRef bundle = CFBundleGetBundleWithIdentifier(CFSTR(kKalmoBundleIdentifier));
    const auto pattern = CopyTextIfPresent(bundle, CFSTR("Number Limits"));
    if (!least || !most || !pattern) return;
    DescribeControlFault(field, Owned<CFStringRef>::Adopt(CFStringCreateWithFormat(
                                    kCFAllocatorDefault, pattern, least.get(), most.get())));
}

bool SettleSpinControl(ControlRef arrows) {
    const ControlRef field = RelatedControl(arrows, kSpinEditField);
    SpinControlValidate(field);
    if (SpinControlIsInputValid(arrows)) return true;
    WriteBack(arrows);
    RefuseSpinControl(arrows);
    return false;
}

void SetSpinControlRange(ControlRef arrows, SInt32 minimum, SInt32 maximum, SInt32 decimals) {
    SetControl32BitMinimum(arrows, minimum);
    SetControl32BitMaximum(arrows, maximum);
    SetNumberProperty(arrows, kSpinDecimals, decimals);
}

ControlRef SpinControlGetRelatedArrows(ControlRef control) {
    return RelatedControl(control, kSpinArrows);
}

void SpinControlArrowsActionProc(ControlRef arrows, SInt16 part) {
    if (part == kControlUpButtonPart) Step(arrows, 1);
    if (part == kControlDownButtonPart) Step(arrows, -1);
}

void SpinSliderActionProc(ControlRef slider, SInt16) {
    const ControlRef arrows = SpinControlGetRelatedArrows(slider);
    SetSpinControlValue(arrows, GetControl32BitValue(slider));
    TellChange(arrows);
}

OSStatus SpinControlEventHandler(EventHandlerCallRef next, EventRef event, void* arrows) {
    if (GetEventClass(event) == kEventClassTextInput)
        return SpinControlTextInputEventHandler(next, event, arrows);
    return WithoutExceptions(eventNotHandledErr, [event] {
        if (!GetEventHasFocus(event))
            WriteBack(SpinControlGetRelatedArrows(GetEventControl(event)));
        return eventNotHandledErr;
    });
}

OSStatus SpinControlTextInputEventHandler(EventHandlerCallRef next, EventRef event, void*) {
    return WithoutExceptions(eventNotHandledErr, [&] { return TakeInput(next, event); });
}

CFStringRef CreateLocalizedCFStringFromNumberWithDecimals(SInt32 value, SInt32 decimals) {
    const int digits = std::max(decimals, 0);
    return CFLocaleCreateStringFromNumber(value / std::pow(10.0, digits), digits, digits);
}

}  // namespace kalmo
