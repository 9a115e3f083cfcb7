// A store of print watermarks that nobody has used.
#pragma once

#include <cstdlib>

#include "support/private_home.h"

namespace kalmo::test {

/// The file of the print watermarks in a home of its own; neither it nor its folder is there.
inline std::filesystem::path FreshStore() {
    const auto home = MakeFolder("home");
    setenv("XDG_CONFIG_HOME", home.c_str(), 1);
    return home / "kalmo-print/Kalmo/com.kalmo.printing.watermarks.plist";
}

}  // namespace kalmo::test
