// What will come out of the printer, in words: sheets, sides, paper, finishing, covers and inserts,
// watermark, job type. Told of the tickets as they are: after a Sync towards the ticket.
#pragma once

#include <string>
#include <vector>

#include "print_dialog/print_job_host.h"
#include "print_dialog/sheet_layout.h"
#include "print_dialog/sheet_plan.h"

namespace kalmo {

struct SummaryRow {
    std::string name;  // "Sheets"; a key that programs know is in `key`
    std::string text;  // "5 a copy, 15 in all"; one line; secrets are never in it
    std::string key;   // "sheets"; several rows may have one
};
struct JobSummary {
    std::vector<SummaryRow> rows;
    SheetPlan plan;                   // of no sheets without a document, and for a fax
    std::vector<std::string> papers;  // the plan's papers in words
    /// What keeps the job from being printed: "passcode", "recipients".
    std::vector<std::string> missing;
    /// "NAME: TEXT" a line each.
    [[nodiscard]] std::string text() const;
};

/// `pages` are the document's pages; empty without a document.
[[nodiscard]] JobSummary SummarizeJob(const PrintJobHost& host, const std::vector<PageSize>& pages);

}  // namespace kalmo
