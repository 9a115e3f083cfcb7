#include "watermark/page_preview.h"

#include <algorithm>
#include <cmath>

#include "toolbox/pictures.h"

namespace kalmo {
namespace {

// A picture may be much larger than the page that shows its middle.
constexpr std::size_t kMostDecodedPixelsOfASide = 4096;

/// As many of the picture's pixels as the preview shows, in steps of two, so that one decoding
/// serves many of a slider's places.
double SharePreviewed(const _WatermarkData& record, double pixelsPerPoint) {
    const double share = std::max(record.scale, SInt32{0}) / 100.0 * pixelsPerPoint;
    return std::exp2(std::round(std::log2(share)));
}

SInt32 Rounded(double pixels) { return std::max(static_cast<SInt32>(std::lround(pixels)), 1); }

}  // namespace

void PreviewDesk::limitPictures(const _WatermarkData& record, double pixelsPerPoint) {
    pictures.limitPixels(kMostDecodedPixelsOfASide, kMostDecodedPixelsOfASide);
    pictures.limitShare(SharePreviewed(record, pixelsPerPoint));
}

Owned<CGImageRef> PreviewDesk::pageImage(const PagePixels& pixels) {
    return Owned<CGImageRef>::Adopt(
        CGPDFDocumentCreatePageImage(CreateDocument(document), 1, pixels.width, pixels.height));
}

PagePreview::PagePreview(const CGSize& page) : worker_(CreateWorker()), page_(page) {}

PagePreview::~PagePreview() { DisposeWorker(worker_); }

void PagePreview::show(const CGSize& page) {
    page_ = page;
    hasContent_ = true;
    ask();
}

void PagePreview::ask() {
    asked_ = pagePixels();
    if (asked_ == PagePixels{}) return;
    const std::shared_ptr<PageDrawing> drawing = createDrawing();
    const auto image = std::make_shared<Owned<CGImageRef>>();
    RunOnWorker(
        worker_, [drawing, image, pixels = asked_] { *image = drawing->draw(pixels); },
        [this, drawing, image] {
            image_ = *image;
            SetControlNeedsDisplay(control_);
            drawingArrived(*drawing);
        });
}

OSStatus PagePreview::draw(EventRef event) {
    if (hasContent_ && pagePixels() != asked_) ask();
    const DrawingRef drawing = GetEventDrawing(event);
    const Rect place = pagePlace();
    if (image_) DrawImageInRect(drawing, image_, place);
    return drawFrame(drawing, place);
}

Rect PagePreview::pagePlace() const {
    Rect bounds;
    GetControlBounds(control_, &bounds);
    const SInt32 width = bounds.right - bounds.left, height = bounds.bottom - bounds.top;
    if (width <= 0 || height <= 0) return {};
    const double scale = std::min(width / page_.width, height / page_.height);
    const SInt32 pageWidth = std::min(Rounded(page_.width * scale), width);
    const SInt32 pageHeight = std::min(Rounded(page_.height * scale), height);
    const SInt32 left = (width - pageWidth) / 2, top = (height - pageHeight) / 2;
    return {top, left, top + pageHeight, left + pageWidth};
}

PagePixels PagePreview::pagePixels() const {
    const Rect place = pagePlace();
    if (!control_ || place.right == place.left) return {};
    const double scale = GetControlScale(control_);
    return {static_cast<std::size_t>(Rounded((place.right - place.left) * scale)),
            static_cast<std::size_t>(Rounded((place.bottom - place.top) * scale))};
}

}  // namespace kalmo
