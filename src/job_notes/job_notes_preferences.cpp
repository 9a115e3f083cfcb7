#include "job_notes/job_notes_preferences.h"

#include "controls/modal_dialog.h"
#include "settings/dictionary.h"
#include "settings/ticket.h"
#include "settings/user_preferences.h"

namespace kalmo {
namespace {

#define kJobNotesFile CFSTR("com.kalmo.print.jobnotes.plist")
constexpr OSStatus kNotStored = -1;

constexpr struct {
    const char* key;
    SInt32 checkBox;
    SInt32 JobNotesPreferencesOptions::*choice;
} kChoices[] = {
    {"useDocumentNameAsJobName", 9000, &JobNotesPreferencesOptions::useDocumentNameAsJobName},
    {"useLoginNameAsSenderName", 9001, &JobNotesPreferencesOptions::useLoginNameAsSenderName},
    {"useLoginNameAsRecipientName", 9002, &JobNotesPreferencesOptions::useLoginNameAsRecipientName},
};

class JobNotesPreferencesDialog final : public ModalDialog {
public:
    JobNotesPreferencesDialog(CFBundleRef bundle, JobNotesPreferencesOptions* options)
        : ModalDialog(bundle, {.file = CFSTR("JobNotes"),
                               .window = CFSTR("JobNotesPrefs"),
                               .helpPage = CFSTR("job_notes_d/db_preferences_d.htm")}),
          options_(options),
          edited_(*options) {}

private:
    void prepare() override {
        RetrieveJobNotesPreferences(&edited_);
        for (const auto& row : kChoices)
            SetControl32BitValue(control(row.checkBox), edited_.*row.choice != 0);
    }

    void controlWasHit(SInt32 id) override {
        for (const auto& row : kChoices)
            if (row.checkBox == id) edited_.*row.choice = isOn(id);
    }

    bool accept() override {
        StoreJobNotesPreferences(edited_);
        *options_ = edited_;
        return true;
    }

    JobNotesPreferencesOptions* options_;
    JobNotesPreferencesOptions edited_;
};

}  // namespace

void RetrieveJobNotesPreferences(JobNotesPreferencesOptions* options) {
    const auto stored = Owned<CFDictionaryRef>::Adopt(CopyStoredUserPreferences(kJobNotesFile));
    if (!stored) *options = {};
    for (const auto& row : kChoices) {
        SInt32& choice = options->*row.choice;
        choice = SInt32InDictionary(stored, CFStringMakeConstant(row.key)).value_or(choice);
    }
}

OSStatus StoreJobNotesPreferences(const JobNotesPreferencesOptions& options) {
    const auto written = Owned<CFMutableDictionaryRef>::Adopt(
        CFDictionaryCreateMutable(kCFAllocatorDefault, std::size(kChoices)));
    if (!written) return kNotStored;
    for (const auto& row : kChoices) {
        CFDictionarySetNumber(written, CFStringMakeConstant(row.key), kCFNumberSInt32Type,
                              &(options.*row.choice));
    }
    return WriteUserPreferences(kJobNotesFile, written) ? noErr : kNotStored;
}

OSStatus RunModalJobNotesPreferencesDialog(CFBundleRef bundle, DialogMode, JobContext,
                                           JobNotesPreferencesOptions* options, SInt32* result) {
    const SInt32 answer = JobNotesPreferencesDialog(bundle, options).run();
    *result = answer == kModalOK ? kModalOK : kModalCancel;
    return answer == kModalOK || answer == kModalCancel ? noErr : answer;
}

}  // namespace kalmo
