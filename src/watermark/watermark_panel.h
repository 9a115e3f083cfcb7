// The Booklet/Watermark panel: the job's watermark with a preview, the user's watermarks, and the
// way to the booklet settings, which belong to Paper/Output.
#pragma once

#include <memory>

#include "settings/ppd_access.h"
#include "shell/base/panel_interface.h"
#include "toolbox/events.h"
#include "watermark/watermark_choice.h"
#include "watermark/watermark_preview.h"

namespace kalmo {

/// Null before the first Open, and where the interface file lacks one.
struct BookletWatermarkControls {
    ControlRef watermark = nullptr, options = nullptr, warning = nullptr, page = nullptr;
    ControlRef booklet = nullptr, bookletState = nullptr, bookletPicture = nullptr;
};

struct WorkerDeleter {
    void operator()(OpaqueWorker* worker) const { DisposeWorker(worker); }
};
using WorkerHolder = std::unique_ptr<OpaqueWorker, WorkerDeleter>;

struct _BookletWatermarkContext : PanelContext {
    WatermarkChoice choice;
    /// The choice is not, or not as it is, in the user's store: it came with a ticket, or could not
    /// be saved. What the store has under its name is another matter.
    bool isTheJobsOwn = false;
    Owned<CFMutableArrayRef> names;  // of the user's watermarks, as the menu shows them
    CGSize page = kDefaultWatermarkPage;
    bool drawingWasTried = false;  // of the choice, for the page
    bool isBeingDrawn = false;     // the same, on the thread
    BookletWatermarkControls controls;
    std::unique_ptr<WatermarkPreview> preview;
    WorkerHolder worker;  // draws what the job takes along
    EventHandlerRef handler = nullptr, printHandler = nullptr;
};

/// Builds the controls in the pane and shows the record. The failure of the interface file.
OSStatus BuildBookletWatermarkControls(_BookletWatermarkContext& context);
/// Menu, words, preview and booklet; nothing before the controls exist.
void ShowBookletWatermark(_BookletWatermarkContext& context);
void ShowBooklet(_BookletWatermarkContext& context);
/// Has the watermark that the menu shows drawn on the job's page.
void renderWatermark(_BookletWatermarkContext* context);

/// Another watermark, or another page: it is shown, and drawn for the job beside.
void WatermarkChanged(_BookletWatermarkContext& context);
/// Draws now what is not drawn yet.
void FinishDrawing(_BookletWatermarkContext& context);

// What the menu's items do, in the user's store and to the job.

void ChooseWatermark(_BookletWatermarkContext& context, CFIndex index);
void ChooseNoWatermark(_BookletWatermarkContext& context);
void ChooseWatermarkOption(_BookletWatermarkContext& context, SInt32 value);
void NewWatermark(_BookletWatermarkContext& context);
void EditWatermark(_BookletWatermarkContext& context);
void DeleteWatermark(_BookletWatermarkContext& context);

}  // namespace kalmo

extern "C" [[gnu::visibility("default")]] OSStatus GetBookletWatermarkPanelInterface(
    PDEInterfaceObject** out);
