// File URLs to and from paths, byte for byte. Private to the platform library.
#pragma once

#include <optional>
#include <string>

#include "foundation/url.h"

namespace kalmo::foundation {

/// Nothing when the URL is no file URL. A path need not be UTF-8.
[[nodiscard]] std::optional<std::string> FilePathOf(CFURLRef url);
/// Null for an empty path.
[[nodiscard]] Owned<CFURLRef> FileURLOf(const std::string& path, bool isDirectory);

}  // namespace kalmo::foundation
