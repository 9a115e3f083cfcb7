// An event on its way through the handlers, and what starts one.
#pragma once

#include <QPersistentModelIndex>
#include <QPoint>
#include <functional>
#include <optional>

#include "toolbox/control_state.h"

struct OpaqueEvent {
    UInt32 eventClass = 0;
    UInt32 kind = 0;
    QPointer<QWidget> control;
    UInt32 command = 0;
    DrawingRef drawing = nullptr;
    QPersistentModelIndex menuItem{};  // where the command was chosen
    CFStringRef text = nullptr;        // of a text input; lives as long as the event
    bool hasFocus = false;             // of a focus event
    UniChar keyCharacter = 0;          // of a raw key
    bool hasControlKey = false;
    std::optional<QPoint> mousePlace{};
    /// Runs once, at the end of the way; the answer is then noErr.
    std::function<void()> standard = nullptr;
};

namespace toolbox {

/// From `start` up to its window. The answer of the handler that ended the way, else that of the
/// standard behaviour, else eventNotHandledErr. `start` may be gone afterwards.
OSStatus SendEvent(QWidget& start, OpaqueEvent& event);

/// The user has changed or pressed the control: a hit, and when all decline it, the command of the
/// control or of its chosen item.
void UserChanged(QWidget& control);

/// Calls the control's action, if it has one, as a handler. The control may be gone afterwards.
void CallAction(QWidget& control, SInt16 part);

/// Sends the command, and when all decline it, does what it means to a modal loop. `item` is not
/// valid unless it was chosen in a menu.
void SendChosenCommand(QWidget& control, UInt32 command, const QModelIndex& item);

/// While handlers run a widget may stand on the stack below: free it later.
[[nodiscard]] bool HandlersAreRunning();

}  // namespace toolbox
