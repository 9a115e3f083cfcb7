// The cover sheet in a picture control, drawn anew after each change on a thread of its own: of the
// changes made meanwhile only the last is drawn.
#pragma once

#include <memory>

#include "fax/cover_sheet.h"
#include "graphics/image.h"
#include "toolbox/events.h"
#include "toolbox/worker.h"

namespace kalmo {

/// UI thread only.
class FaxCoverPreview final {
public:
    FaxCoverPreview();
    ~FaxCoverPreview();
    FaxCoverPreview(const FaxCoverPreview&) = delete;
    FaxCoverPreview& operator=(const FaxCoverPreview&) = delete;

    /// Where it is drawn; its draw events come to draw(). Null: nowhere.
    void setControl(ControlRef control) { control_ = control; }
    void show(const CoverSheet& cover);
    /// Answers a draw event of the control.
    OSStatus draw(EventRef event);

private:
    ControlRef control_ = nullptr;
    WorkerRef worker_ = nullptr;
};

/// Assembles the cover from the state and shows it.
void DrawFaxCoverPreview(FaxCoverPreview& preview, const CoverSheetState& state);

}  // namespace kalmo
