// The maker whose printers have a pane.
#pragma once

namespace kalmo {

/// As the PPD file's Manufacturer has it; compared exactly.
inline constexpr char kManufacturer[] = "Kalmo";

}  // namespace kalmo
