// A page with its watermark in a picture control, drawn anew after each change on a thread of its
// own: of the changes made meanwhile only the last is drawn.
#pragma once

#include <functional>
#include <memory>

#include "graphics/image.h"
#include "toolbox/events.h"
#include "toolbox/worker.h"
#include "watermark/watermark_page.h"

namespace kalmo {

/// UI thread only.
class WatermarkPreview final {
public:
    /// Called after each drawing with the record as it was drawn (its glyphs are lent) and what
    /// DrawWatermarkOnly answered; the control is about to be repainted. The preview must outlive
    /// the call.
    using Shown = std::function<void(const _WatermarkData& drawn, OSStatus status)>;

    explicit WatermarkPreview(Shown shown = {});
    ~WatermarkPreview();
    WatermarkPreview(const WatermarkPreview&) = delete;
    WatermarkPreview& operator=(const WatermarkPreview&) = delete;

    /// Where it is drawn; its draw events come to draw(). Null: nowhere, and nothing is drawn.
    void setControl(ControlRef control) { control_ = control; }
    /// Draws this page with the record (copied, its glyphs left out) as soon as may be, in as many
    /// pixels as the control has. Without a control, or with one too small to show anything, that
    /// is at its next draw event.
    void show(const _WatermarkData& record, const CGSize& page);
    /// Answers a draw event of the control: the page last drawn, framed, and the frame alone before
    /// that. A page drawn for another size is stretched until it is drawn for this one.
    OSStatus draw(EventRef event);
    /// Where the page stands in the control, in the control's pixels: as large as fits, centred.
    [[nodiscard]] Rect pagePlace() const;

private:
    struct Pixels {
        std::size_t width = 0, height = 0;
        bool operator==(const Pixels&) const = default;
    };
    struct Job;

    [[nodiscard]] Pixels pagePixels() const;
    void ask();
    void take(Job& job);

    Shown shown_;
    WorkerRef worker_;
    ControlRef control_ = nullptr;
    std::unique_ptr<_WatermarkData>
        record_;  // without glyphs; null before anything was to be shown
    CGSize page_ = kDefaultWatermarkPage;
    Pixels asked_;
    Owned<CGImageRef> image_;
    std::shared_ptr<struct WatermarkDesk> desk_;  // what the thread keeps between drawings
};

}  // namespace kalmo
