// Interface files, windows, and application-modal loops.
#pragma once

#include "foundation/bundle.h"
#include "kalmo/statuses.h"

#pragma GCC visibility push(default)

/// The interface file NAME.ui of the bundle's resources; nibNotFoundErr when it is missing or
/// broken. Its windows stand directly inside its root. Besides Qt's widgets it may hold UserPane, a
/// bare view; PictureControl, which its owner draws; MenuButton, whose menu sends commands;
/// SpinArrows, a value with two halves to press; ColorWell, a color; and AngleDial, a slider whose
/// value is a direction in degrees, counter-clockwise from pointing right; and SearchField, a field
/// to search in. A QTabWidget is a control whose hit says that another tab was brought to the
/// front; its pages carry the `textKey` of their tabs. Properties that mean something here:
/// `controlSignature` (four characters) and `controlID`; `command` (four characters), sent when the
/// control is pressed; and the keys `textKey`, `tipKey` and `nameKey` (accessible name), looked up
/// in the bundle's table `textTable` ("Localizable" without one) when a window is made. A key
/// without a text: "STRING NOT FOUND" and one line in the log.
OSStatus CreateNibReferenceWithCFBundle(CFBundleRef bundle, CFStringRef name, IBNibRef* nib);
void DisposeNibReference(IBNibRef nib);
/// The top-level widget of that object name, made anew and hidden; nibNotFoundErr when the file has
/// no such window, an unknown widget class in it, or the same control id twice; one line in the log
/// then says which.
OSStatus CreateWindowFromNib(IBNibRef nib, CFStringRef window, WindowRef* out);
/// Closes and frees the window with all that is still in it. Null is ignored.
void DisposeWindow(WindowRef window);

void SetWindowTitleWithCFString(WindowRef window, CFStringRef title);
/// The button that Return presses, and the one that Escape presses; null when there is none.
OSStatus GetWindowDefaultButton(WindowRef window, ControlRef* button);
OSStatus GetWindowCancelButton(WindowRef window, ControlRef* button);
OSStatus SetWindowDefaultButton(WindowRef window, ControlRef button);
OSStatus SetWindowCancelButton(WindowRef window, ControlRef button);
/// The window's content view, parent of what is embedded at the top.
[[nodiscard]] ControlRef GetWindowContentView(WindowRef window);

/// Shows `window` over `owner` (null: the active window) and runs until it is quit or closed by the
/// user. Return presses its default button, Escape its cancel button; their commands 'ok  ' and
/// 'not!', where no handler wants them, quit with kModalOK and kModalCancel. Where the Presence
/// runs no modal loops it returns at once. Returns what was passed to Quit..., kModalCancel
/// otherwise.
[[nodiscard]] SInt32 RunAppModalLoopForWindow(WindowRef window, WindowRef owner);
void QuitAppModalLoopForWindow(WindowRef window, SInt32 result);
inline constexpr SInt32 kModalOK = 1;
inline constexpr SInt32 kModalCancel = 2;

/// Alerts with texts already localized; they reach the user through the installed Presence.
void ShowNotice(CFStringRef header, CFStringRef message);
void SysBeep();

#pragma GCC visibility pop
