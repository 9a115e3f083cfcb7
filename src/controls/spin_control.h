// A number in a field with arrows beside it, and perhaps a slider that follows.
//
// The arrows hold the value, as an integer of 10^-decimals; field and slider show it. What belongs
// together is kept in properties of the controls, so that any of them leads to the others. Input
// that is refused beeps.
#pragma once

#include "foundation/string.h"
#include "toolbox/events.h"

namespace kalmo {

/// Creator of the arrows' properties, and their names. All but 'vald' are 32-bit numbers.
inline constexpr OSType kSpinCreator = 'SPIN';
inline constexpr OSType kSpinEditField = 'edit';  // id of the field, of the arrows' signature
inline constexpr OSType kSpinDecimals = 'decs';
inline constexpr OSType kSpinAngle = 'angl';         // present: the text ends with U+02DA
inline constexpr OSType kSpinPercent = 'perc';       // present: the text ends with "%"
inline constexpr OSType kSpinOtherControl = 'othr';  // id of a slider that mirrors the value
inline constexpr OSType kSpinRedraw = 'xdrw';        // id of a control drawn anew at each change
inline constexpr OSType kSpinValid = 'vald';         // one byte: the text last typed was in range
inline constexpr OSType kSpinArrows = 'arro';        // of field and slider: id of their arrows

/// Sent to the arrows after the user typed in the field, pressed the arrows or moved the slider;
/// the value may be what it was.
inline constexpr UInt32 kEventClassSpin = kSpinCreator;
inline constexpr UInt32 kEventSpinChanged = 'chng';

/// What a dialog says about a spin control. Ids of one signature; 0: there is none.
struct SpinControlSetup {
    SInt32 arrows = 0, field = 0, slider = 0, redraw = 0;
    SInt32 minimum = 0, maximum = 0, step = 1, decimals = 0;
    enum class Sign { none, angle, percent } sign = Sign::none;
};
/// Writes the properties and bounds of the setup's controls in `window`, then CreateSpinControl.
OSStatus SetUpSpinControl(WindowRef window, OSType signature, const SpinControlSetup& setup);

/// paramErr for null, else the status of reading 'edit'. The handlers go with their controls.
OSStatus CreateSpinControl(ControlRef arrows);
void DisposeSpinControl(ControlRef arrows);
/// paramErr, with a beep, when the value lies outside the arrows' range; then only the arrows have
/// changed, to the nearest value.
OSStatus SetSpinControlValue(ControlRef arrows, SInt32 value, Boolean flag = false);
/// Takes the field's text over into arrows, slider and 'vald'; the text stays as typed.
void SpinControlValidate(ControlRef field);
/// Whether typed characters may enter: control characters only, or digits, separator and "-".
[[nodiscard]] bool SpinControlValidateInput(const UniChar* characters, UInt32 byteSize);
[[nodiscard]] bool SpinControlIsInputValid(ControlRef arrows);
/// Beeps, moves the focus into the field, and describes it by the numbers that it takes.
void RefuseSpinControl(ControlRef arrows);
/// For a dialog that is about to close: whether the field's text is in range. If not, it is put
/// right and refused, so that the user sees it.
[[nodiscard]] bool SettleSpinControl(ControlRef arrows);
/// The range of the arrows and how many of their digits are fraction; a value outside follows. The
/// texts are those before until a value is set.
void SetSpinControlRange(ControlRef arrows, SInt32 minimum, SInt32 maximum, SInt32 decimals);
/// The arrows of a field or slider; null when it has none.
[[nodiscard]] ControlRef SpinControlGetRelatedArrows(ControlRef control);

void SpinControlArrowsActionProc(ControlRef arrows, SInt16 part);
void SpinSliderActionProc(ControlRef slider, SInt16 part);
OSStatus SpinControlEventHandler(EventHandlerCallRef next, EventRef event, void* arrows);
OSStatus SpinControlTextInputEventHandler(EventHandlerCallRef next, EventRef event, void* arrows);

/// value / 10^decimals in the user's locale, with at least so many fraction digits. Null without a
/// locale. The caller releases it.
[[nodiscard]] CFStringRef CreateLocalizedCFStringFromNumberWithDecimals(SInt32 value,
                                                                        SInt32 decimals);

}  // namespace kalmo
