// The shell's own events: selector, step buttons, help, and the check before printing.
#pragma once

#include "shell/shell_context.h"

namespace kalmo {

/// `shell` is the PDEShellContext. eventNotHandledErr for all that the shell does not consume, a
/// job that may be printed included.
OSStatus pdeShellEventHandler(EventHandlerCallRef next, EventRef event, void* shell);

/// The handler of the dialog's window (from system 10.5 on) or of its two buttons; once.
void InstallDialogHandlers(PDEShellContext& shell);
/// The handler that lives while the pane is open.
void InstallOpenHandler(PDEShellContext& shell);
void RemoveOpenHandler(PDEShellContext& shell);
/// The handler of the shell's pane: its controls' hits and menus.
void InstallPaneHandler(PDEShellContext& shell);
void RemoveAllHandlers(PDEShellContext& shell);

}  // namespace kalmo
