// Folders of the printer's job storage: by name for people, by location for the ticket.
#pragma once

#include "foundation/string.h"

namespace kalmo {

/// "file:///job-repository/" and the name, whose characters that mean something in a location, and
/// all but ASCII, are written as %XX of their UTF-8. "." and ".." are names like any other.
[[nodiscard]] Owned<CFStringRef> LocationOfFolder(CFStringRef name);
/// The name; a location elsewhere, or one that is no location of a folder, as it stands.
[[nodiscard]] Owned<CFStringRef> FolderOfLocation(CFStringRef location);

}  // namespace kalmo
