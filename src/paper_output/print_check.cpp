#include "paper_output/print_check.h"

#include <utility>

#include "foundation/number.h"
#include "shell/base/notices.h"
#include "shell/base/plugin_bundle.h"

namespace kalmo {
namespace {

PrintCheckSource currentSource;  // NOLINT: installed and taken away by the panel

Owned<CFNumberRef> Number(SInt32 value) {
    return Owned<CFNumberRef>::Adopt(
        CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt32Type, &value));
}

void AskForPasscode() {
    const auto least = Number(kPasscodeMinimumLength), most = Number(kPasscodeMaximumLength);
    const CFTypeRef lengths[] = {least, most};
    ShowNoticeWithKeys(GetPDEBundle(),
                       NoticeKeys{.header = CFSTR("Invalid Secure Print Passcode Header"),
                                  .message = CFSTR("Invalid Secure Print Passcode Message")},
                       lengths, 2);
}

bool LacksPasscode(const CheckedJob& job) {
    return job.jobType == kJobTypeSecurePrint &&
           (!job.passcode || CFStringGetLength(job.passcode) == 0);
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
        AskForPasscode();
        return PrintCheckResult::refused;
    }
    if (LacksRecipient(job)) {
        if (source.runFaxSetup) source.runFaxSetup();
        return PrintCheckResult::refused;
    }
    return PrintCheckResult::pass;
}

}  // namespace kalmo
