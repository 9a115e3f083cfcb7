// kalmo-print without a window: the same lifecycle, one line per message, nothing waits for a user.
#pragma once

#include "print_dialog/command_line.h"

namespace kalmo {

/// --no-dialog. An offscreen QApplication must be running.
[[nodiscard]] ExitCode RunUnattended(const CommandLine& commandLine);

}  // namespace kalmo
