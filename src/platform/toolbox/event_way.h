// An event on its way through the handlers, and what starts one.
#pragma once

#include "toolbox/control_state.h"

struct OpaqueEvent {
    UInt32 eventClass = 0;
    UInt32 kind = 0;
    QPointer<QWidget> control;
    UInt32 command = 0;
    DrawingRef drawing = nullptr;
};

namespace toolbox {

/// From `start` up to its window. The answer of the handler that ended the way, else
/// eventNotHandledErr. `start` may be gone afterwards.
OSStatus SendEvent(QWidget& start, OpaqueEvent& event);

/// The user has changed or pressed the control: a hit, and when all decline it, the command of the
/// control or of its chosen item.
void UserChanged(QWidget& control);

/// While handlers run a widget may stand on the stack below: free it later.
[[nodiscard]] bool HandlersAreRunning();

}  // namespace toolbox
