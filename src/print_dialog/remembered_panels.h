// The further panels that the user has chosen in the window, kept from one start to the next.
//
// They stand in window.conf in the user's folder for kalmo-print (~/.config/kalmo-print), under
// "panels".
#pragma once

#include <string>
#include <vector>

#include "print_dialog/outcome.h"

namespace kalmo {

/// Names as in --panels. What the file holds besides them is passed over; without a readable file
/// there are none.
[[nodiscard]] std::vector<std::string> RememberedPanels();
/// The file is replaced whole or not at all.
Outcome RememberPanels(const std::vector<std::string>& panels);

}  // namespace kalmo
