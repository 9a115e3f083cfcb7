#include "watermark/watermark_preview.h"

#include <algorithm>
#include <cmath>

#include "toolbox/pictures.h"

namespace kalmo {

/// Used by the thread alone while a job holds it, so that a preview may go during a drawing.
struct WatermarkDesk {
    WatermarkDesk() { CreateMemoryConsumer(CFIndex{64} << 10, &document); }
    ~WatermarkDesk() { MemoryConsumerReleaseInfo(&document); }
    WatermarkDesk(const WatermarkDesk&) = delete;
    WatermarkDesk& operator=(const WatermarkDesk&) = delete;

    MemoryConsumerState document;
    WatermarkPictures pictures;
};

namespace {

// A picture may be much larger than the page that shows its middle.
constexpr std::size_t kMostDecodedPixelsOfASide = 4096;

/// As many of the picture's pixels as the preview shows, in steps of two, so that one decoding
/// serves many of a slider's places.
double SharePreviewed(const _WatermarkData& record, double pixelsPerPoint) {
    const double share = std::max(record.scale, SInt32{0}) / 100.0 * pixelsPerPoint;
    return std::exp2(std::round(std::log2(share)));
}

bool IsPage(const CGSize& page) { return page.width > 0 && page.height > 0; }

SInt32 Rounded(double pixels) { return std::max(static_cast<SInt32>(std::lround(pixels)), 1); }

}  // namespace

struct WatermarkPreview::Job {
    std::shared_ptr<WatermarkDesk> desk;
    CGSize page;
    Pixels pixels;
    WatermarkHolder record;
    OSStatus status = noErr;
    Owned<CGImageRef> image;

    void draw() {
        desk->pictures.limitPixels(kMostDecodedPixelsOfASide, kMostDecodedPixelsOfASide);
        desk->pictures.limitShare(
            SharePreviewed(*record, static_cast<double>(pixels.width) / page.width));
        status = DrawWatermarkPage(&desk->document, page, PagePaper::white, record.get(),
                                   &desk->pictures);
        const auto document = CreateDocument(desk->document);
        image = Owned<CGImageRef>::Adopt(
            CGPDFDocumentCreatePageImage(document, 1, pixels.width, pixels.height));
        if (!image && status == noErr) status = memFullErr;
    }
};

WatermarkPreview::WatermarkPreview(Shown shown)
    : shown_(std::move(shown)), worker_(CreateWorker()), desk_(std::make_shared<WatermarkDesk>()) {}

WatermarkPreview::~WatermarkPreview() { DisposeWorker(worker_); }

void WatermarkPreview::show(const _WatermarkData& record, const CGSize& page) {
    record_ = std::make_unique<_WatermarkData>(record);
    record_->glyphs = nullptr;
    record_->glyphCount = 0;
    page_ = IsPage(page) ? page : kDefaultWatermarkPage;
    ask();
}

void WatermarkPreview::ask() {
    asked_ = pagePixels();
    if (asked_ == Pixels{}) return;
    const auto job = std::make_shared<Job>();
    job->desk = desk_;
    job->page = page_;
    job->pixels = asked_;
    *job->record = *record_;
    RunOnWorker(
        worker_, [job] { job->draw(); }, [this, job] { take(*job); });
}

void WatermarkPreview::take(Job& job) {
    image_ = job.image;
    SetControlNeedsDisplay(control_);
    if (shown_) shown_(*job.record, job.status);
}

OSStatus WatermarkPreview::draw(EventRef event) {
    if (record_ && pagePixels() != asked_) ask();
    const DrawingRef drawing = GetEventDrawing(event);
    const Rect place = pagePlace();
    if (image_) DrawImageInRect(drawing, image_, place);
    return FrameRect(drawing, place);
}

Rect WatermarkPreview::pagePlace() const {
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

WatermarkPreview::Pixels WatermarkPreview::pagePixels() const {
    const Rect place = pagePlace();
    if (!control_ || place.right == place.left) return {};
    const double scale = GetControlScale(control_);
    return {static_cast<std::size_t>(Rounded((place.right - place.left) * scale)),
            static_cast<std::size_t>(Rounded((place.bottom - place.top) * scale))};
}

}  // namespace kalmo
