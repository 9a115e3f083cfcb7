#include "fax/cover_preview.h"

#include "fax/cover_renderer.h"
#include "fax/fax_options.h"
#include "toolbox/pictures.h"
#include "watermark/watermark_store.h"

namespace kalmo {
namespace {

constexpr CFIndex kInitialSize = 32768;
constexpr double kFrameWidth = 5;  // in points of the page

}  // namespace

class FaxCoverPreview::Drawing final : public PageDrawing {
public:
    Drawing(std::shared_ptr<PreviewDesk> desk, std::shared_ptr<const CoverSheet> cover)
        : desk_(std::move(desk)), cover_(std::move(cover)) {}

    Owned<CGImageRef> draw(const PagePixels& pixels) override {
        WatermarkHolder image;
        const bool hasImage =
            cover_->imageName && loadWatermarkData(kFaxImageStore, cover_->imageName, *image);
        desk_->limitPictures(*image, static_cast<double>(pixels.width) / cover_->page.width);
        const OSStatus status = DrawFaxCover(CreateConsumer(desk_->document), {{}, cover_->page},
                                             {cover_->senderLabel, cover_->senderText},
                                             {cover_->recipientsLabel, cover_->recipientsText},
                                             {cover_->notesLabel, cover_->notesText},
                                             hasImage ? image.get() : nullptr, &desk_->pictures);
        imageIsMissing = cover_->imageName && (!hasImage || status != noErr);
        return desk_->pageImage(pixels);
    }

    bool imageIsMissing = false;

private:
    std::shared_ptr<PreviewDesk> desk_;
    std::shared_ptr<const CoverSheet> cover_;
};

FaxCoverPreview::FaxCoverPreview()
    : PagePreview(FaxCoverPageSize(kCoverSizeLetter)),
      desk_(std::make_shared<PreviewDesk>(kInitialSize)) {}

void FaxCoverPreview::show(const CoverSheet& cover, CFBundleRef bundle) {
    bundle_ = Owned<CFBundleRef>::Retain(bundle);
    cover_ = std::make_shared<const CoverSheet>(cover);
    describe();
    PagePreview::show(cover.page);
}

std::shared_ptr<PageDrawing> FaxCoverPreview::createDrawing() const {
    return std::make_shared<Drawing>(desk_, cover_);
}

void FaxCoverPreview::drawingArrived(PageDrawing& drawing) {
    const bool isMissing = static_cast<Drawing&>(drawing).imageIsMissing;
    if (isMissing == imageIsMissing_) return;
    imageIsMissing_ = isMissing;
    describe();
}

OSStatus FaxCoverPreview::drawFrame(DrawingRef drawing, const Rect& place) const {
    const double pixelsPerPoint = (place.right - place.left) / page().width;
    return StrokeRect(drawing, place, kFrameWidth * pixelsPerPoint);
}

void FaxCoverPreview::describe() const {
    SetControlAccessibleDescription(control(),
                                    DescribeCoverSheet(bundle_, *cover_, imageIsMissing_));
}

void DrawFaxCoverPreview(FaxCoverPreview& preview, const CoverSheetState& state) {
    preview.show(AssembleCoverSheet(state), state.bundle);
}

}  // namespace kalmo
