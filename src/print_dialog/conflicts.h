// Choices that the printer cannot do together, in words, before the job is sent.
//
// Looked for in the tickets as they are: after a Sync towards the ticket.
#pragma once

#include <string>
#include <vector>

#include "print_dialog/print_job_host.h"
#include "printing/ppd_conflicts.h"

namespace kalmo {

/// A selection with the printer's own texts, in the user's language.
struct NamedSelection {
    PPDSelection keywords;
    std::string option, choice;
    bool operator==(const NamedSelection&) const = default;
};

struct ConflictReport {
    /// Forbidden together; two selections or more each.
    std::vector<std::vector<NamedSelection>> conflicts;
    /// The fewest changes that end all of them; empty when none do.
    std::vector<NamedSelection> changes;
    bool operator==(const ConflictReport&) const = default;
};

/// Without a PPD file there are none.
[[nodiscard]] ConflictReport CheckConflicts(const PrintJobHost& host);

/// "Staple: One staple does not go with Paper type: Labels", a line each.
[[nodiscard]] std::vector<std::string> ConflictLines(const ConflictReport& report);
/// "Set Staple to None", a line each.
[[nodiscard]] std::vector<std::string> ChangeLines(const ConflictReport& report);

}  // namespace kalmo
