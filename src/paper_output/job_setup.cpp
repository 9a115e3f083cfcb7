#include "paper_output/job_setup.h"

#include "fax/lan_fax_setup.h"
#include "paper_output/delayed_print_dialog.h"
#include "paper_output/saved_job_dialog.h"
#include "paper_output/secure_print_dialog.h"
#include "toolbox/windows.h"

namespace kalmo {
namespace {

void SetUpSavedJob(_PaperOutputContext& context) { RunModalSavedJobDialog(&context); }

void SetUpFax(_PaperOutputContext& context) {
    PaperOutputRecord& record = context.record;
    if (!record.faxOptions) {
        record.faxOptions =
            Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    }
    if (!record.faxRecipients) record.faxRecipients = std::make_unique<FaxRecipientList>();
    RunModalLANFaxSetup(context.bundle, record.faxOptions, record.faxRecipients.get());
}

void SetUpSecurePrint(_PaperOutputContext& context) {
    Owned<CFStringRef> passcode = context.record.job.securePassword;
    if (RunModalSecurePrintSetup(context.bundle, &passcode) == kModalOK)
        context.record.job.setPasscode(passcode);
}

void SetUpDelayedPrint(_PaperOutputContext& context) {
    RunModalDelayedPrintSetup(context.bundle, &context.record.job.delayedPrintTime);
}

/// Types 4 and 9 enable the setup button and have no dialog.
constexpr struct {
    SInt32 jobType;
    void (*run)(_PaperOutputContext& context);
} kSetups[] = {
    {kJobTypeSaved, SetUpSavedJob},
    {kJobTypeFax, SetUpFax},
    {kJobTypeSecurePrint, SetUpSecurePrint},
    {kJobTypeDelayed, SetUpDelayedPrint},
};

}  // namespace

void RunJobSetup(_PaperOutputContext& context) {
    for (const auto& setup : kSetups)
        if (setup.jobType == context.record.job.jobType) return setup.run(context);
}

}  // namespace kalmo
