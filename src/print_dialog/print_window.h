// The Print dialog: form and preview of the document, and the printer's own pane.
#pragma once

#include "print_dialog/command_line.h"

namespace kalmo {

/// Shows the dialog and runs until it is closed. A QApplication must be running. Messages that
/// belong to the command line (a broken ticket file, say) go to standard error before any window.
[[nodiscard]] ExitCode RunPrintWindow(const CommandLine& commandLine);

}  // namespace kalmo
