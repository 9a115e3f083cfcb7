// Outcome of an operation on files: done, or one line that says what is wrong.
#pragma once

#include <string>

namespace kalmo::job_ticket {

/// Ok, or one line that says what is wrong (no file name in it).
struct [[nodiscard]] Result {
    std::string error;
    explicit operator bool() const { return error.empty(); }
};

}  // namespace kalmo::job_ticket
