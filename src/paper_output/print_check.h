// Whether the job may be printed as it stands: secure print needs a passcode, a fax a recipient.
//
// The panel that owns the job's record supplies what is looked at; without one every job passes.
#pragma once

#include <functional>

#include "foundation/string.h"
#include "paper_output/job_type.h"

namespace kalmo {

/// The job at the moment when Print is pressed.
struct CheckedJob {
    SInt32 jobType = 1;
    Owned<CFStringRef> passcode;
    CFIndex faxRecipientCount = 0;
};

/// What the owner of the job's record gives.
struct PrintCheckSource {
    std::function<CheckedJob()> job;
    /// Makes the fax data and the recipient list when they are missing, and runs the fax setup.
    std::function<void()> runFaxSetup;
};

enum class PrintCheckResult { pass, refused };

/// Replaces the source; an empty one takes it away. The owner does so before its record goes.
void InstallPrintCheckSource(PrintCheckSource source);
/// Refused after a notice (secure print without passcode) or after the fax setup (fax without
/// recipient, also when the user has just added one: Print is pressed again); a notice stands for
/// the setup in an unattended run.
PrintCheckResult CheckPrintJob();

}  // namespace kalmo
