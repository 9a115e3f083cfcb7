// The dialog that a job type is set up with.
#pragma once

#include "paper_output/paper_output_panel.h"

namespace kalmo {

/// Runs the dialog of the record's job type; nothing for a type without one. The popup, the setup
/// button and the check before printing all come here.
void RunJobSetup(_PaperOutputContext& context);

}  // namespace kalmo
