// What the print server is asked about its queues. Blocking, for workers only.
#pragma once

#include "print_dialog/printers.h"

namespace kalmo {

[[nodiscard]] PrinterList FetchPrinterList();

/// Also fetches the queue's PPD file into the user's private cache, when it is newer there.
[[nodiscard]] PrinterDescription FetchPrinterDescription(const std::string& queue);

}  // namespace kalmo
