// The pane's own operations, slots 3 to 9 of the table that the plug-in hands out.
#pragma once

#include "kalmo/pde.h"

namespace kalmo::PDEShell {

/// Slots 0 to 2 are empty. Contracts as in kalmo/pde.h; a null context answers
/// kPMInvalidPDEContext, in Sync kPMInvalidPrintSession.
extern const PDEInterfaceTable kOperations;

}  // namespace kalmo::PDEShell
