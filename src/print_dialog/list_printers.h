// --list-printers
#pragma once

#include "print_dialog/command_line.h"

namespace kalmo {

/// "* NAME<tab>MAKE AND MODEL<tab>INFO<tab>PANE" per line; the star marks the default, other lines
/// have a blank there. PANE is "pane: yes", "pane: no, REASON", or "pane: unknown, REASON" where
/// the server did not tell in time. A QApplication must be running.
[[nodiscard]] ExitCode ListPrinters();

}  // namespace kalmo
