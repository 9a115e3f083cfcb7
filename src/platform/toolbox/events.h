// Events and their handlers.
//
// An event goes to the handlers of its control, newest first, then to those of each containing
// view, then to those of the window. The first that answers anything but eventNotHandledErr ends
// the way; its answer is the event's. When all decline, the control's standard behaviour runs: for
// a hit, whose value has changed before, that is to send the command of the popup's chosen item or
// of the control, if it has one.
#pragma once

#include "foundation/string.h"
#include "kalmo/statuses.h"
#include "toolbox/controls.h"

struct EventTypeSpec {
    UInt32 eventClass;
    UInt32 eventKind;
};
inline constexpr UInt32 kEventClassControl = 'cntl';
inline constexpr UInt32 kEventControlHit = 1;
/// The control is about to be freed. Handlers only take leave.
inline constexpr UInt32 kEventControlDispose = 2;
inline constexpr UInt32 kEventControlDraw = 4;
/// A text field gained or lost the keyboard focus; not when only its window did.
inline constexpr UInt32 kEventControlSetFocusPart = 7;
/// Text is about to enter a field: a key, a paste, a drop or an input method. Keys that only edit
/// come as control characters: Backspace and cut 8, Delete 127, Return 13, Enter 3, up 30, down 31,
/// undo and redo 26. The field's standard behaviour is to insert or edit (Return and Enter: the
/// window's default button), also at the end of CallNextEventHandler, which then answers noErr.
inline constexpr UInt32 kEventClassTextInput = 'tins';
inline constexpr UInt32 kEventTextInput = 2;
/// A key that goes down in a field of several lines, a combo box or a list, before they see it: the
/// standard behaviour is theirs (Tab moves the focus), also at the end of CallNextEventHandler.
inline constexpr UInt32 kEventClassKeyboard = 'keyb';
inline constexpr UInt32 kEventRawKeyDown = 1;
/// Only from picture controls, for the left button: pressed on it, moved while held (also beyond
/// its edges), let go. A press that nobody wants is followed by neither of the others; one that is
/// wanted is let go when the control is hidden or disabled or another window holds it up, too.
inline constexpr UInt32 kEventClassMouse = 'mous';
inline constexpr UInt32 kEventMouseDown = 1;
inline constexpr UInt32 kEventMouseUp = 2;
inline constexpr UInt32 kEventMouseDragged = 6;
inline constexpr UInt32 kEventClassCommand = 'cmds';
inline constexpr UInt32 kEventCommandProcess = 1;
inline constexpr UInt32 kEventClassMenu = 'menu';
/// A popup's menu is about to be opened and may still be changed.
inline constexpr UInt32 kEventMenuPopulate = 8;

using EventHandlerProc = OSStatus (*)(EventHandlerCallRef next, EventRef event, void* userData);

#pragma GCC visibility push(default)

/// `handler` (may be null) receives a reference for RemoveEventHandler; a handler also ends with
/// its control or window. Removing is safe at any time, inside the handler too.
OSStatus InstallControlEventHandler(ControlRef control, EventHandlerProc proc, UInt32 count,
                                    const EventTypeSpec* types, void* userData,
                                    EventHandlerRef* handler);
OSStatus InstallWindowEventHandler(WindowRef window, EventHandlerProc proc, UInt32 count,
                                   const EventTypeSpec* types, void* userData,
                                   EventHandlerRef* handler);
/// Null and references already gone are ignored.
void RemoveEventHandler(EventHandlerRef handler);
/// Runs the rest of the way and gives its answer.
OSStatus CallNextEventHandler(EventHandlerCallRef next, EventRef event);

[[nodiscard]] UInt32 GetEventClass(EventRef event);
[[nodiscard]] UInt32 GetEventKind(EventRef event);
/// The control that was hit or is drawn; null for a command without one.
[[nodiscard]] ControlRef GetEventControl(EventRef event);
/// The command of a 'cmds' event, 0 otherwise.
[[nodiscard]] UInt32 GetEventCommand(EventRef event);
/// The menu and item of a command that was chosen in a menu; false otherwise.
Boolean GetEventMenuItem(EventRef event, MenuRef* menu, UInt16* item);
/// Of a text input: lent, valid during the event; null otherwise.
[[nodiscard]] CFStringRef GetEventText(EventRef event);
/// Its size in UTF-16 bytes.
[[nodiscard]] UInt32 GetEventTextByteSize(EventRef event);
/// Of a focus event: whether the field has the focus now.
[[nodiscard]] Boolean GetEventHasFocus(EventRef event);
/// Of a raw key: the character that it types, or its control character (Return 13, Enter 3,
/// Backspace 8, Delete 127, Escape 27); 0 for others and other events.
[[nodiscard]] UniChar GetEventKeyCharacter(EventRef event);
/// Of a raw key: whether Ctrl (and neither Alt nor Meta) is held.
[[nodiscard]] Boolean GetEventHasControlKey(EventRef event);
/// Of a mouse event: pixels from the control's upper left corner. False otherwise.
Boolean GetEventMousePlace(EventRef event, SInt32* x, SInt32* y);
/// The drawing of a draw event, null otherwise; valid during the event.
[[nodiscard]] DrawingRef GetEventDrawing(EventRef event);

/// Sends a 'cmds' event that starts at `control` (or at the window). The answer is the event's
/// status.
OSStatus SendCommandFromControl(ControlRef control, UInt32 command);
OSStatus SendCommandToWindow(WindowRef window, UInt32 command);
/// Sends an event of the caller's own class and kind that starts at `control`.
OSStatus SendEventToControl(ControlRef control, UInt32 eventClass, UInt32 kind);

#pragma GCC visibility pop
