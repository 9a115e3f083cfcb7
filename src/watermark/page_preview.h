// A page in a picture control, drawn anew after each change on a thread of its own: of the changes
// made meanwhile only the last is drawn.
#pragma once

#include <memory>

#include "graphics/image.h"
#include "toolbox/events.h"
#include "toolbox/worker.h"
#include "watermark/memory_pdf.h"
#include "watermark/watermark_drawing.h"

namespace kalmo {

struct PagePixels {
    std::size_t width = 0, height = 0;
    bool operator==(const PagePixels&) const = default;
};

/// The page as it is to be drawn once; it owns all it uses. Made and answered on the UI thread.
class PageDrawing {
public:
    PageDrawing() = default;
    virtual ~PageDrawing() = default;
    PageDrawing(const PageDrawing&) = delete;
    PageDrawing& operator=(const PageDrawing&) = delete;

    /// On the thread. Null when it cannot be drawn.
    virtual Owned<CGImageRef> draw(const PagePixels& pixels) = 0;
};

/// What the thread keeps between drawings. Used by the thread alone while a drawing holds it, so
/// that a preview may go meanwhile.
struct PreviewDesk {
    explicit PreviewDesk(CFIndex initialSize) { CreateMemoryConsumer(initialSize, &document); }
    ~PreviewDesk() { MemoryConsumerReleaseInfo(&document); }
    PreviewDesk(const PreviewDesk&) = delete;
    PreviewDesk& operator=(const PreviewDesk&) = delete;

    /// Decodes of the record's picture as much as so many pixels to the point can show.
    void limitPictures(const _WatermarkData& record, double pixelsPerPoint);
    /// Page 1 of what was written last; null when that is no document.
    [[nodiscard]] Owned<CGImageRef> pageImage(const PagePixels& pixels);

    MemoryConsumerState document;
    WatermarkPictures pictures;
};

/// UI thread only.
class PagePreview {
public:
    virtual ~PagePreview();
    PagePreview(const PagePreview&) = delete;
    PagePreview& operator=(const PagePreview&) = delete;

    /// Where it is drawn; its draw events come to draw(). Null: nowhere, and nothing is drawn.
    void setControl(ControlRef control) { control_ = control; }
    /// Answers a draw event of the control: the page last drawn, framed, and the frame alone before
    /// that. A page drawn for another size is stretched until it is drawn for this one.
    OSStatus draw(EventRef event);
    /// Where the page stands in the control, in the control's pixels: as large as fits, centred.
    [[nodiscard]] Rect pagePlace() const;

protected:
    /// `page`, in points, is the place before anything is shown.
    explicit PagePreview(const CGSize& page);

    /// Draws as soon as may be, in as many pixels as the control has. Without a control, or with
    /// one too small to show anything, that is at its next draw event.
    void show(const CGSize& page);
    [[nodiscard]] ControlRef control() const { return control_; }
    [[nodiscard]] const CGSize& page() const { return page_; }

private:
    /// What is to be seen now.
    [[nodiscard]] virtual std::shared_ptr<PageDrawing> createDrawing() const = 0;
    /// The control is about to be repainted with it.
    virtual void drawingArrived(PageDrawing& drawing) = 0;
    virtual OSStatus drawFrame(DrawingRef drawing, const Rect& place) const = 0;

    [[nodiscard]] PagePixels pagePixels() const;
    void ask();

    WorkerRef worker_;
    ControlRef control_ = nullptr;
    CGSize page_;
    bool hasContent_ = false;
    PagePixels asked_;
    Owned<CGImageRef> image_;
};

}  // namespace kalmo
