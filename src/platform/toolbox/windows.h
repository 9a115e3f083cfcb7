// Interface files, windows, and application-modal loops.
#pragma once

#include "foundation/bundle.h"
#include "kalmo/statuses.h"

#pragma GCC visibility push(default)

/// The interface file NAME.ui of the bundle's resources. nibNotFoundErr when it is missing or
/// broken. Texts come from the properties `textKey`, `tipKey`, `nameKey` and `table` (accessible
/// name) of its widgets, looked up in the bundle when a window is made; "STRING NOT FOUND" and one
/// line in the log otherwise.
OSStatus CreateNibReferenceWithCFBundle(CFBundleRef bundle, CFStringRef name, IBNibRef* nib);
void DisposeNibReference(IBNibRef nib);
/// The top-level widget of that object name, made anew and hidden; nibNotFoundErr when the file has
/// no such window, an unknown widget class in it, or the same control id twice.
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

/// Shows `window` over `owner` (may be null) and runs until it is quit or closed by the user. Where
/// the Presence runs no modal loops it returns at once. Returns what was passed to Quit..., 2
/// (Cancel) otherwise.
[[nodiscard]] SInt32 RunAppModalLoopForWindow(WindowRef window, WindowRef owner);
void QuitAppModalLoopForWindow(WindowRef window, SInt32 result);
inline constexpr SInt32 kModalOK = 1;
inline constexpr SInt32 kModalCancel = 2;

/// Alerts with texts already localized; they reach the user through the installed Presence.
void ShowNotice(CFStringRef header, CFStringRef message);
void SysBeep();

#pragma GCC visibility pop
