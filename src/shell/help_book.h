// The plug-in's help book.
#pragma once

#include "shell/shell_context.h"

namespace kalmo {

/// The help registration's status; fnfErr when the bundle's place is no file path.
OSStatus RegisterMyHelpBook(const PDEShellContext& shell);

}  // namespace kalmo
