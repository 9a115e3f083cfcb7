// kalmo-print without a window: the same lifecycle, one line per message, nothing waits for a user.
#pragma once

#include "print_dialog/command_line.h"

namespace kalmo {

/// --list-printers: "* NAME<tab>MAKE AND MODEL<tab>INFO" per line; the star marks the default,
/// other lines have a blank there. An application must be running.
[[nodiscard]] ExitCode ListPrinters();

/// --no-dialog. An offscreen QApplication must be running.
[[nodiscard]] ExitCode RunUnattended(const CommandLine& commandLine);

}  // namespace kalmo
