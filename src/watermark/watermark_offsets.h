// Where a text stands on its page, by keyboard and by dragging: the editor's two offset fields with
// the popup of their units.
#pragma once

#include <array>
#include <optional>

#include "graphics/geometry.h"
#include "toolbox/windows.h"
#include "watermark/watermark_data.h"

namespace kalmo {

/// Keeps the offsets of the record, which lives longer, within half the page either way. An offset
/// stays as exact as it is until another step of its units is chosen.
class WatermarkOffsets final {
public:
    /// Pixels to the right and downwards.
    using Place = std::array<SInt32, 2>;

    WatermarkOffsets() = default;
    /// Fills the controls; `page` in pt.
    WatermarkOffsets(WindowRef window, _WatermarkData* record, const CGSize& page);

    /// A hit of the units' popup; other controls' ids do nothing.
    void controlWasHit(SInt32 id);
    /// Likewise for the fields' arrows.
    void numberWasChanged(SInt32 arrows);
    /// Of what was typed last; see SettleSpinControl.
    [[nodiscard]] bool settle() const;

    void beginDrag(const Place& place);
    [[nodiscard]] bool isDragged() const { return drag_.has_value(); }
    /// The offsets follow the mouse from where it was pressed.
    void dragTo(const Place& place, double inchesPerPixel);
    void endDrag() { drag_.reset(); }

private:
    struct Row;
    struct Drag {
        Place start;
        std::array<float, 2> inches;
    };
    static const Row kRows[2];

    void show() const;
    void take(const Row& row) const;
    [[nodiscard]] SInt32 steps(const Row& row, double inches) const;
    [[nodiscard]] ControlRef control(SInt32 id) const;

    WindowRef window_ = nullptr;
    _WatermarkData* record_ = nullptr;
    CGSize page_;
    std::optional<Drag> drag_;
};

}  // namespace kalmo
