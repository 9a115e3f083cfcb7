// The user's three choices about names in job notes, in a file of their own, and their dialog.
//
// They are kept for the software at the printer, which reads the file: nothing here follows them.
#pragma once

#include "foundation/bundle.h"
#include "kalmo/statuses.h"
#include "settings/setting_map.h"

namespace kalmo {

/// Each 0 or 1.
struct JobNotesPreferencesOptions {
    SInt32 useDocumentNameAsJobName = 1;
    SInt32 useLoginNameAsSenderName = 1;
    SInt32 useLoginNameAsRecipientName = 1;
};

/// Without a file that can be read all three are 1; a choice that the file lacks stays as it was.
void RetrieveJobNotesPreferences(JobNotesPreferencesOptions* options);
/// Replaces the file; -1 when nothing was written.
OSStatus StoreJobNotesPreferences(const JobNotesPreferencesOptions& options);
/// `*result`: 1 after OK, when the choices are in the file and in `*options`; 2 after Cancel, when
/// nothing has changed. The failure of the interface file counts as Cancel.
OSStatus RunModalJobNotesPreferencesDialog(CFBundleRef bundle, DialogMode mode, JobContext context,
                                           JobNotesPreferencesOptions* options, SInt32* result);

}  // namespace kalmo
