#include "paper_output/print_check.h"

#include <utility>

#include "paper_output/passcode.h"
#include "shell/base/notices.h"
#include "shell/base/plugin_bundle.h"
#include "system/presence.h"

namespace kalmo {
namespace {

PrintCheckSource currentSource;  // NOLINT: installed and taken away by the panel

bool LacksPasscode(const CheckedJob& job) {
    return job.jobType == kJobTypeSecurePrint &&
           (!job.passcode || CFStringGetLength(job.passcode) == 0);
}

void ShowNoFaxRecipientsNotice() {
    ShowNoticeWithKeys(GetPDEBundle(),
                       {.header = CFSTR("No Fax Recipients Header"),
                        .message = CFSTR("No Fax Recipients Message")},
                       nullptr, 0);
}

bool LacksRecipient(const CheckedJob& job) {
    return job.jobType == kJobTypeFax && job.faxRecipientCount == 0;
}

}  // namespace

void InstallPrintCheckSource(PrintCheckSource source) { currentSource = std::move(source); }

PrintCheckResult CheckPrintJob() {
    // A copy: the owner may take its source away while the fax setup runs.
    const PrintCheckSource source = currentSource;
    if (!source.job) return PrintCheckResult::pass;
    const CheckedJob job = source.job();
    if (LacksPasscode(job)) {
        ShowInvalidPasscodeNotice(GetPDEBundle());
        return PrintCheckResult::refused;
    }
    if (LacksRecipient(job)) {
        // Where no setup can be shown, a line says what is missing.
        if (!CurrentPresence().modalLoopsRun) {
            ShowNoFaxRecipientsNotice();
        } else if (source.runFaxSetup) {
            source.runFaxSetup();
        }
        return PrintCheckResult::refused;
    }
    return PrintCheckResult::pass;
}

}  // namespace kalmo
