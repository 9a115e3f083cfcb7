// A document cut to some of its pages.
#pragma once

#include <filesystem>
#include <vector>

#include "print_dialog/job_settings.h"
#include "print_dialog/outcome.h"

namespace kalmo {

/// Writes the pages of `ranges` to `output`, which only the user can read. Pages behind the end are
/// none. May take long: for a worker. Fails (no file name in the error).
Outcome CopyPages(const std::filesystem::path& document, const std::vector<PageRange>& ranges,
                  const std::filesystem::path& output);

}  // namespace kalmo
