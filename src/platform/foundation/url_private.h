// File URLs to and from paths, byte for byte, and whole files. Private to the platform library.
#pragma once

#include <optional>
#include <string>

#include "foundation/url.h"

namespace kalmo::foundation {

/// Nothing when the URL is no file URL. A path need not be UTF-8.
[[nodiscard]] std::optional<std::string> FilePathOf(CFURLRef url);
/// Null for an empty path.
[[nodiscard]] Owned<CFURLRef> FileURLOf(const std::string& path, bool isDirectory);

/// Appends the file's bytes. 0 or an errno number; EFBIG beyond `most` bytes, EINVAL for what is no
/// plain file. A named pipe or a device is not waited for.
[[nodiscard]] int ReadWholeFile(const std::string& path, std::size_t most, std::string& bytes);

}  // namespace kalmo::foundation
