// Success, or why not.
#pragma once

#include <string>

namespace kalmo {

/// Success, or one line that says what is wrong and what to do.
struct [[nodiscard]] Outcome {
    std::string error;
    explicit operator bool() const { return error.empty(); }
};

}  // namespace kalmo
