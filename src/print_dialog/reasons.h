// Why a library refused a file, in the user's language.
#pragma once

#include <string>

namespace kalmo {

/// The English reason of the platform or of job_ticket, part by part; ": " stands between parts.
/// What the table does not know, the system's own words among it, stays as it is.
[[nodiscard]] std::string ReasonInWords(std::string reason);

}  // namespace kalmo
