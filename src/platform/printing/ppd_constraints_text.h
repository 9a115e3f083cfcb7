// What a PPD file forbids, as it is written there: keywords, nothing looked up.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "printing/ppd_conflicts.h"

struct WrittenOption {
    std::string keyword, defaultChoice;
    std::vector<std::string> choices;
    bool isInstalled = false;  // a part of the printer
};
/// Forbidden together; an empty choice stands for any that is not off. `preferred`: what the
/// printer would rather change.
struct WrittenConstraint {
    std::vector<PPDSelection> terms, preferred;
};
struct WrittenConstraints {
    std::vector<WrittenOption> options;  // in the file's order
    std::vector<WrittenConstraint> constraints;
};

/// Nothing, with a one-line reason, when the file is no PPD file.
[[nodiscard]] std::optional<WrittenConstraints> ReadWrittenConstraints(const std::string& path,
                                                                       std::string* reason);
