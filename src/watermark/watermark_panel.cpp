#include "watermark/watermark_panel.h"

#include "controls/panel_operations.h"
#include "watermark/job_page.h"
#include "watermark/stored_watermarks.h"
#include "watermark/watermark_store.h"

namespace kalmo {
namespace {

/// A watermark and its drawing, as they come from the thread.
struct JobDrawing {
    WatermarkHolder record;
    Owned<CFDataRef> document;
};

void Draw(JobDrawing& drawing, const CGSize& page) {
    drawing.document = Owned<CFDataRef>::Adopt(CopyWatermarkDrawing(drawing.record.get(), page));
}

bool IsOtherPage(const CGSize& left, const CGSize& right) {
    return left.width != right.width || left.height != right.height;
}

/// What was drawn meanwhile may be another watermark, or on another page, than is chosen now.
void TakeDrawing(_BookletWatermarkContext& context, JobDrawing& drawing, const CGSize& page) {
    if (IsOtherPage(page, context.page) || !context.choice.isDrawnAs(*drawing.record)) return;
    context.choice.setDrawing(drawing.document, page, *drawing.record);
    context.drawingWasTried = true;
    context.isBeingDrawn = false;
}

bool NeedsDrawing(const _BookletWatermarkContext& context) {
    return !context.drawingWasTried && context.choice.lacksDrawing(context.page);
}

void StartDrawing(_BookletWatermarkContext& context) {
    if (!NeedsDrawing(context)) return;
    if (!context.worker) context.worker.reset(CreateWorker(WorkerPace::patient));
    context.isBeingDrawn = true;
    const auto drawing = std::make_shared<JobDrawing>();
    context.choice.load(drawing->record.get());
    const CGSize page = context.page;
    RunOnWorker(
        context.worker.get(), [drawing, page] { Draw(*drawing, page); },
        [&context, drawing, page] { TakeDrawing(context, *drawing, page); });
}

void Initialize(_BookletWatermarkContext& context) {
    context.names =
        Owned<CFMutableArrayRef>::Adopt(CopyWatermarkListAtStart(kWatermarkStore, context.bundle));
    RemoveWatermarkName(context.names, CFSTR(""));
}

OSStatus ReadTicket(_BookletWatermarkContext& context, PMTicketRef ticket) {
    const CGSize page = JobPage(context.session, context.ppd);
    const bool otherPage = IsOtherPage(page, context.page);
    context.page = page;
    const bool other = context.choice.read(ticket);
    if (other) context.isTheJobsOwn = true;
    if (other || otherPage) WatermarkChanged(context);
    ShowBooklet(context);
    return noErr;
}

/// What is being drawn is waited for only before the job goes.
OSStatus WriteTicket(_BookletWatermarkContext& context, PMTicketRef ticket) {
    if (!context.isBeingDrawn) FinishDrawing(context);
    return context.choice.write(ticket);
}

void OpenAgain(_BookletWatermarkContext& context) { ShowBookletWatermark(context); }

void Finish(_BookletWatermarkContext& context) {
    RemoveEventHandler(context.handler);
    RemoveEventHandler(context.printHandler);
}

constexpr PanelParts<_BookletWatermarkContext> kParts = {
    .titleKey = "BookletWatermark",
    .initialize = Initialize,
    .read = ReadTicket,
    .write = WriteTicket,
    .build = BuildBookletWatermarkControls,
    .openAgain = OpenAgain,
    .finish = Finish,
};

}  // namespace

void WatermarkChanged(_BookletWatermarkContext& context) {
    context.drawingWasTried = false;
    context.isBeingDrawn = false;
    ShowBookletWatermark(context);
    // Without a pane to show there is nobody to draw ahead for.
    if (context.opened) StartDrawing(context);
}

void FinishDrawing(_BookletWatermarkContext& context) {
    if (!NeedsDrawing(context)) return;
    JobDrawing drawing;
    context.choice.load(drawing.record.get());
    Draw(drawing, context.page);
    TakeDrawing(context, drawing, context.page);
}

}  // namespace kalmo

extern "C" OSStatus GetBookletWatermarkPanelInterface(PDEInterfaceObject** out) {
    return kalmo::CreatePanel<kalmo::_BookletWatermarkContext, kalmo::kParts>(out);
}
