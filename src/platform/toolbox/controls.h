// Controls: identity, values, texts, properties, place and state. A control is a widget; a null
// control answers 0, null, false or paramErr and changes nothing.
//
// Programmatic changes raise no event. Values are 32-bit, clamped to minimum and maximum.
#pragma once

#include "foundation/string.h"
#include "kalmo/statuses.h"
#include "toolbox/windows.h"

struct ControlID {
    OSType signature;
    SInt32 id;
};

/// Where the user presses or moves: the two halves of arrows, a slider's thumb.
inline constexpr SInt16 kControlUpButtonPart = 20;
inline constexpr SInt16 kControlDownButtonPart = 21;
inline constexpr SInt16 kControlIndicatorPart = 129;
using ControlActionProc = void (*)(ControlRef control, SInt16 part);
/// Control data of arrows: their step, an SInt32.
inline constexpr OSType kControlIncrementTag = 'incr';

#pragma GCC visibility push(default)

/// In the window or anything embedded in it; controlNotFoundErr otherwise (`*control` untouched).
OSStatus GetControlByID(WindowRef window, ControlID id, ControlRef* control);
OSStatus GetControlID(ControlRef control, ControlID* id);
OSStatus SetControlID(ControlRef control, ControlID id);
/// The window the control stands in, null when it stands in none.
[[nodiscard]] WindowRef GetControlOwner(ControlRef control);

/// Popup: number of the chosen item from 1, 0 when none; a separator is never chosen. Tabs: number
/// of the tab in front from 1. Check box: 0 or 1. Spin, slider: the number.
[[nodiscard]] SInt32 GetControl32BitValue(ControlRef control);
void SetControl32BitValue(ControlRef control, SInt32 value);
[[nodiscard]] SInt32 GetControl32BitMinimum(ControlRef control);
void SetControl32BitMinimum(ControlRef control, SInt32 minimum);
/// A popup's maximum may exceed its items; choosing beyond them chooses nothing.
[[nodiscard]] SInt32 GetControl32BitMaximum(ControlRef control);
void SetControl32BitMaximum(ControlRef control, SInt32 maximum);

/// Control data; kPMKeyNotFound when it was never set, paramErr for a null control.
OSStatus GetControlData(ControlRef control, OSType tag, UInt32 size, UInt32* actualSize,
                        void* data);
OSStatus SetControlData(ControlRef control, OSType tag, UInt32 size, const void* data);
/// Called while the user presses arrows (at once, then once per tick after a moment) or moves a
/// slider (at each movement). Arrows do not change their value themselves: the action does. Null
/// takes it away.
void SetControlAction(ControlRef control, ControlActionProc action);

/// What a date and time control shows, seconds since the start of 1904 in local time; 0 for other
/// controls. Set clamps to what the control can show.
[[nodiscard]] SInt64 GetControlDateTime(ControlRef control);
void SetControlDateTime(ControlRef control, SInt64 seconds);

/// A text field's selection in UTF-16 units; {0, 0} for other controls. Set clamps to the text.
[[nodiscard]] CFRange GetControlTextSelection(ControlRef field);
void SetControlTextSelection(ControlRef field, CFRange selection);

/// A color well's color, not premultiplied, 0 to 1; black for other controls. The well opens the
/// desktop's color chooser when it is pressed, and a hit says that another color was chosen.
struct ControlColor {
    float red = 0, green = 0, blue = 0, alpha = 1;
};
[[nodiscard]] ControlColor GetControlColor(ControlRef well);
void SetControlColor(ControlRef well, const ControlColor& color);

/// What the pointer looks like over the control.
enum class PointerShape { arrow, openHand, closedHand };
void SetControlPointer(ControlRef control, PointerShape shape);

/// Title of a button or group, text of a label or field.
void SetControlTitleWithCFString(ControlRef control, CFStringRef title);
[[nodiscard]] CFStringRef CopyControlTitleAsCFString(ControlRef control);
/// What assistive technology reads: the name of a control without a text of its own, and the
/// description of what a picture shows now.
void SetControlAccessibleName(ControlRef control, CFStringRef name);
void SetControlAccessibleDescription(ControlRef control, CFStringRef description);
/// What is wrong with a text field; `message` describes it until its text changes.
void DescribeControlFault(ControlRef field, CFStringRef message);
void SetControlHelpTag(ControlRef control, CFStringRef tip);
/// A button's picture, drawn at the button's icon size. Null takes it away.
void SetControlPicture(ControlRef control, PictureRef picture);

/// Bytes kept at the control under creator and tag, copied.
OSStatus SetControlProperty(ControlRef control, OSType creator, OSType tag, UInt32 size,
                            const void* data);
/// Up to `size` bytes; kPMKeyNotFound when there is no such property.
OSStatus GetControlProperty(ControlRef control, OSType creator, OSType tag, UInt32 size,
                            UInt32* actualSize, void* data);
OSStatus RemoveControlProperty(ControlRef control, OSType creator, OSType tag);

/// In the coordinates of the containing view.
void GetControlBounds(ControlRef control, Rect* bounds);
void SetControlBounds(ControlRef control, const Rect& bounds);
/// The size the control wants for its texts and contents.
void GetBestControlSize(ControlRef control, SInt32* width, SInt32* height);

/// Takes `child` out of where it is and places it, at its bounds, in `parent`; its controls keep
/// their tab order and come behind those already there. A parent with a layout of its own takes the
/// child into it. Otherwise a user pane keeps its distances to all four edges when the parent
/// changes size, and the parent never becomes smaller than its panes, hidden ones too, need; other
/// controls stay at their bounds.
OSStatus EmbedControl(ControlRef child, ControlRef parent);
/// The first view inside `control`, then its sisters in order; null at the end.
[[nodiscard]] ControlRef GetFirstSubcontrol(ControlRef control);
[[nodiscard]] ControlRef GetNextSibling(ControlRef control);
/// A bare view in `window` (its content view), shown.
OSStatus CreateUserPaneControl(WindowRef window, const Rect& bounds, ControlRef* pane);
/// A text of several lines, wrapped to its width, in `window` (its content view), shown.
OSStatus CreateStaticTextControl(WindowRef window, const Rect& bounds, CFStringRef text,
                                 ControlRef* control);
/// Moves every subview of `section` into `pane`, `top` pixels lower than it stood in the section;
/// tab order, labels' buddies and visibility stay. Subviews that lay out what they hold become rows
/// over the pane's width, the gaps as drawn: they stack anew when one changes its height, and the
/// labels of controls that begin their lines share one width and end at one line.
OSStatus MoveSubviewsToPane(ControlRef section, ControlRef pane, SInt32 top);
/// Frees the control with all it holds. Null is ignored.
void DisposeControl(ControlRef control);

void ShowControl(ControlRef control);
void HideControl(ControlRef control);
/// The control's own state, whether or not its window is on screen; so with the two below.
[[nodiscard]] Boolean IsControlVisible(ControlRef control);
/// An inactive control looks and acts disabled, and remembers whether it is enabled.
void ActivateControl(ControlRef control);
void DeactivateControl(ControlRef control);
[[nodiscard]] Boolean IsControlActive(ControlRef control);
void EnableControl(ControlRef control);
void DisableControl(ControlRef control);
[[nodiscard]] Boolean IsControlEnabled(ControlRef control);
void SetKeyboardFocus(ControlRef control);
/// Whether the control, or one in it, has its window's keyboard focus; the window itself need not
/// be the active one.
[[nodiscard]] Boolean HasKeyboardFocus(ControlRef control);
/// No control of the window has the focus then; what was being composed is entered before.
void ClearKeyboardFocus(WindowRef window);
/// Asks for a 'cntl' draw event soon.
void SetControlNeedsDisplay(ControlRef control);
/// Acts as if the user had pressed the control: its value changes and a hit is sent.
void SimulateControlHit(ControlRef control);

#pragma GCC visibility pop
