// Where, as what and under which name the printer stores a job.
#pragma once

#include "foundation/bundle.h"
#include "paper_output/job_type.h"
#include "settings/setting_map.h"

namespace kalmo {

struct _PaperOutputContext;

/// Folders of every printer's job storage.
extern const SettingMap _FolderNameMap[];

/// Edits the saved job's fields and the passcode of the panel's record. kModalCancel or the failure
/// of the interface file change nothing.
SInt32 RunModalSavedJobDialog(_PaperOutputContext* context);

}  // namespace kalmo
