// Property lists in files.
#pragma once

#include "foundation/property_list.h"
#include "foundation/url.h"

namespace kalmo {

/// The immutable property list in the file; null when it cannot be read or parsed. The caller
/// releases it.
[[nodiscard]] CFPropertyListRef CreatePropertiesFromXMLFile(CFURLRef url);
/// The same with containers and leaves that may be changed.
[[nodiscard]] CFPropertyListRef CreateMutablePropertiesFromXMLFile(CFURLRef url);
/// Whether a write returns only when the file is on the disk.
enum class Durability { synced, unsynced };
/// Replaces the file as a whole. On failure false, with a platform error in `*error`.
bool WritePropertiesToXMLFile(CFURLRef url, CFPropertyListRef list, SInt32* error,
                              Durability durability = Durability::synced);

}  // namespace kalmo
