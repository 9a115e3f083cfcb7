// A page with its watermark in a picture control.
#pragma once

#include <functional>
#include <memory>

#include "watermark/page_preview.h"
#include "watermark/watermark_page.h"

namespace kalmo {

class WatermarkPreview final : public PagePreview {
public:
    /// Called after each drawing with the record as it was drawn (its glyphs are lent) and what
    /// DrawWatermarkOnly answered; the control is about to be repainted. The preview must outlive
    /// the call.
    using Shown = std::function<void(const _WatermarkData& drawn, OSStatus status)>;

    explicit WatermarkPreview(Shown shown = {});

    /// Draws this page with the record (copied, its glyphs left out).
    void show(const _WatermarkData& record, const CGSize& page);

private:
    class Drawing;

    [[nodiscard]] std::shared_ptr<PageDrawing> createDrawing() const override;
    void drawingArrived(PageDrawing& drawing) override;
    OSStatus drawFrame(DrawingRef drawing, const Rect& place) const override;

    Shown shown_;
    std::unique_ptr<_WatermarkData> record_;  // without glyphs; null before the first is shown
    std::shared_ptr<PreviewDesk> desk_;
};

}  // namespace kalmo
