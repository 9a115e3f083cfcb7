// Panels by name: the table of their interface functions, and the loading of those that are there.
#pragma once

#include "shell/shell_context.h"

/// Room for so many panels; a host may fill the empty slots before Prologue.
inline constexpr int kPanelSlots = 12;

/// Names of interface functions, ended by the first null.
extern "C" [[gnu::visibility("default")]] CFStringRef PanelInterfaces[kPanelSlots];

namespace kalmo {

/// Keeps each panel of the table whose interface function is found and whose Prologue succeeds; all
/// others are passed over without a message to the user.
void LoadBuiltInPanels(PDEShellContext& shell);

}  // namespace kalmo
