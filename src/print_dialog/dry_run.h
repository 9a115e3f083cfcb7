// A job told instead of printed: what comes out, with which job options, and what the printer
// cannot do of it. docs/command-line.md tells the form for programs.
#pragma once

#include <string>

#include "print_dialog/job_order.h"
#include "print_dialog/print_job_host.h"

namespace kalmo {

enum class DryRunForm { text, json };

struct DryRun {
    std::string output;  // of whole lines
    /// Neither a conflict nor anything missing.
    bool printable = false;
};

/// `pages` are the document's; empty without one. The tickets must hold the job: after a Sync
/// towards the ticket. Nothing is written anywhere. Fails with a line when no job can be made of
/// it.
Outcome RehearseJob(const PrintJobHost& host, const JobRequest& request,
                    const std::vector<PageSize>& pages, DryRunForm form, DryRun* result);

}  // namespace kalmo
