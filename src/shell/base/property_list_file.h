// Property lists in files.
#pragma once

#include "foundation/property_list.h"
#include "foundation/url.h"

namespace kalmo {

/// The immutable property list in the file; null when it cannot be read or parsed. The caller
/// releases it.
[[nodiscard]] CFPropertyListRef CreatePropertiesFromXMLFile(CFURLRef url);

}  // namespace kalmo
