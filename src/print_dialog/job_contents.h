// What a job's tickets hold, as plain values. A ticket may hold anything: what makes no sense
// falls to the default. Secrets do not come out of here: that there is a passcode and how many
// receive a fax, not which and who.
#pragma once

#include <string>
#include <vector>

#include "print_dialog/job_paper.h"
#include "print_dialog/print_job_host.h"
#include "print_dialog/sheet_plan.h"

namespace kalmo {

/// As tickets number them; others may be there.
enum class JobKind {
    normal = 1,
    held = 2,
    saved = 3,
    fax = 5,
    secure = 6,
    delayed = 7,
    sample = 8
};
/// Sheets between sets or transparencies, as tickets number them.
enum class ExtraSheets { none = 1, blank = 2, printed = 3 };

struct FaxContents {
    int recipients = 0;
    bool coverSheet = false;
    bool confirmation = true;
    SInt64 sendTime = 0;  // seconds since 1904 in local time; 0: at once
};

/// What an exception changes beside its paper and sides.
struct PageChange {
    PlanException where;
    int lightness = 0;  // -5 lightest .. 5 darkest
    bool shifted = false;
};

struct JobContents {
    PlanInput plan;  // without a page count: no document
    std::vector<JobPaper> papers;
    std::vector<PageChange> changes;

    JobKind kind = JobKind::normal;
    bool hasPasscode = false;
    SInt64 releaseTime = 0;  // as sendTime; 0: never set
    bool savedAndPrinted = false;
    FaxContents fax;

    std::string watermark;  // its name; empty: none
    bool watermarkOnPage1Only = false;
    bool startMessage = false, bannerMessage = false, accountingNote = false;
    bool bannerSheet = false;
    ExtraSheets slipSheets = ExtraSheets::none, separators = ExtraSheets::none;
};

/// `pageCount` is 0 without a document. The tickets count as far as they go with the job: without a
/// pane the PPD choices alone.
[[nodiscard]] JobContents ReadJobContents(const PrintJobHost& host, int pageCount);

}  // namespace kalmo
