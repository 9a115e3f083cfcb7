// PPD files as libcups holds them: opened within limits, their texts put into the user's language.
#pragma once

#include <string>

struct ppd_file_s;  // libcups

#pragma GCC visibility push(default)

/// Opens the file with the translations of all languages that the user prefers, whichever locales
/// are installed. Null with a one-line reason (`reason` may be null) for what is no PPD file, no
/// ordinary file, or far larger than any. The caller closes it with libcups' ppdClose.
[[nodiscard]] ppd_file_s* OpenPPDFile(const std::string& path, std::string* reason);

/// Replaces the texts of groups, options and choices of a file from OpenPPDFile by those in the
/// user's languages, as far as it has them. libcups keeps 80 bytes of each.
void LocalizePPDFile(ppd_file_s* ppd);

#pragma GCC visibility pop
