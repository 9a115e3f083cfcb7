// Which panel is shown.
#pragma once

#include "shell/shell_context.h"

namespace kalmo {

/// Lets the panel shown last write the ticket and all others read it, then shows the pane of tab
/// `tabIndex` alone.
void selectPanel(SInt32 tabIndex, PDEShellContext* shell);
/// Shows the panel `step` tabs on, round the ends, and lets the selector say so.
void StepPanel(SInt32 step, PDEShellContext* shell);

}  // namespace kalmo
