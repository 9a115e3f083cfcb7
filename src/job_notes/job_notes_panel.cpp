#include "job_notes/job_notes_panel.h"

#include "controls/panel_operations.h"

namespace kalmo {
namespace {

void ReadPreferences(_JobNotesContext& context) {
    RetrieveJobNotesPreferences(&context.preferences);
}

constexpr PanelParts<_JobNotesContext> kParts = {
    .titleKey = "JobNotes",
    .initialize = ReadPreferences,
    .read = ReadJobNotes,
    .write = WriteJobNotes,
    .build = BuildJobNotesControls,
    .finish = FinishJobNotesControls,
};

}  // namespace
}  // namespace kalmo

extern "C" OSStatus GetJobNotesPanelInterface(PDEInterfaceObject** out) {
    return kalmo::CreatePanel<kalmo::_JobNotesContext, kalmo::kParts>(out);
}
