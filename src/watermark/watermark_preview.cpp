#include "watermark/watermark_preview.h"

#include "toolbox/pictures.h"

namespace kalmo {
namespace {

constexpr CFIndex kInitialSize = CFIndex{64} << 10;

bool IsPage(const CGSize& page) { return page.width > 0 && page.height > 0; }

}  // namespace

class WatermarkPreview::Drawing final : public PageDrawing {
public:
    Drawing(std::shared_ptr<PreviewDesk> desk, const CGSize& page, const _WatermarkData& given)
        : desk_(std::move(desk)), page_(page) {
        *record = given;
    }

    Owned<CGImageRef> draw(const PagePixels& pixels) override {
        desk_->limitPictures(*record, static_cast<double>(pixels.width) / page_.width);
        status = DrawWatermarkPage(&desk_->document, page_, PagePaper::white, record.get(),
                                   &desk_->pictures);
        auto image = desk_->pageImage(pixels);
        if (!image && status == noErr) status = memFullErr;
        return image;
    }

    WatermarkHolder record;
    OSStatus status = noErr;

private:
    std::shared_ptr<PreviewDesk> desk_;
    CGSize page_;
};

WatermarkPreview::WatermarkPreview(Shown shown)
    : PagePreview(kDefaultWatermarkPage),
      shown_(std::move(shown)),
      desk_(std::make_shared<PreviewDesk>(kInitialSize)) {}

void WatermarkPreview::show(const _WatermarkData& record, const CGSize& page) {
    record_ = std::make_unique<_WatermarkData>(record);
    record_->glyphs = nullptr;
    record_->glyphCount = 0;
    PagePreview::show(IsPage(page) ? page : kDefaultWatermarkPage);
}

std::shared_ptr<PageDrawing> WatermarkPreview::createDrawing() const {
    return std::make_shared<Drawing>(desk_, page(), *record_);
}

void WatermarkPreview::drawingArrived(PageDrawing& drawing) {
    auto& drawn = static_cast<Drawing&>(drawing);
    if (shown_) shown_(*drawn.record, drawn.status);
}

OSStatus WatermarkPreview::drawFrame(DrawingRef drawing, const Rect& place) const {
    return FrameRect(drawing, place);
}

}  // namespace kalmo
