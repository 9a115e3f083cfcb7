// Moving all panels' values to the ticket and back.
#pragma once

#include "shell/shell_context.h"

namespace kalmo::PDEShell {

/// Every panel, the one shown last at the end, so that its values win; towards the ticket then the
/// shell's own items. kPMInvalidPrintSession for a null session or context, the failure of reading
/// the ticket, else 0.
OSStatus Sync(PDEContext context, PMPrintSession session, Boolean direction);

}  // namespace kalmo::PDEShell

/// Makes all panels of the running dialog read or write the ticket, with the dialog's own session;
/// `session` is not looked at.
extern "C" [[gnu::visibility("default")]] OSStatus PDESync(PMPrintSession session,
                                                           Boolean direction);
