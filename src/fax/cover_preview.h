// The cover sheet of a fax in a picture control.
#pragma once

#include "fax/cover_sheet.h"
#include "watermark/page_preview.h"

namespace kalmo {

class FaxCoverPreview final : public PagePreview {
public:
    FaxCoverPreview();

    /// `bundle` has the words for those who cannot see it: they become the control's description.
    void show(const CoverSheet& cover, CFBundleRef bundle);

private:
    class Drawing;

    [[nodiscard]] std::shared_ptr<PageDrawing> createDrawing() const override;
    void drawingArrived(PageDrawing& drawing) override;
    OSStatus drawFrame(DrawingRef drawing, const Rect& place) const override;
    void describe() const;

    Owned<CFBundleRef> bundle_;
    std::shared_ptr<const CoverSheet> cover_;
    bool imageIsMissing_ = false;  // as far as is known
    std::shared_ptr<PreviewDesk> desk_;
};

/// Assembles the cover from the state and shows it.
void DrawFaxCoverPreview(FaxCoverPreview& preview, const CoverSheetState& state);

}  // namespace kalmo
