// The shell's controls: its pane in the dialog, and the panes of the panels in it.
#pragma once

#include "controls/nib_holders.h"
#include "shell/shell_context.h"

namespace kalmo {

#define kShellNib CFSTR("PDE_Shell")
#define kShellWindow CFSTR("Window")

/// Makes a hidden pane for each panel in the dialog's window, as large as the container in
/// `shellWindow`.
void CreatePanelPanes(PDEShellContext& shell, WindowRef shellWindow);
/// Unpacks the shell's pane, centres it in the parent control, fills the selector and the step
/// buttons, and puts the panels' panes into the container. The failure of the interface file.
OSStatus PlaceShellPane(PDEShellContext& shell);
/// Shows the panel of gCurrentPanel, the first when there is none yet.
void ShowCurrentPanel(PDEShellContext& shell);
/// Frees the shell's pane with the panels in it, and panes that were never placed.
void DisposePanes(PDEShellContext& shell);

}  // namespace kalmo
