// kalmo-print without a window: the same lifecycle, one line per message, nothing waits for a user.
#pragma once

#include "print_dialog/command_line.h"

namespace kalmo {

/// --list-printers: "NAME<tab>MAKE AND MODEL<tab>INFO" per line, the default marked "*".
[[nodiscard]] ExitCode ListPrinters();

/// --no-dialog. An offscreen application must be running.
[[nodiscard]] ExitCode RunUnattended(const CommandLine& commandLine);

}  // namespace kalmo
