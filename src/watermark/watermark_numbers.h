// The editor's whole numbers: font size, angle and density of a text, scale of a picture.
#pragma once

#include "toolbox/windows.h"
#include "watermark/watermark_data.h"

namespace kalmo {

enum class WatermarkKind { text, picture };

/// Fields with arrows, and dial or slider beside them, for numbers of the record, which lives
/// longer.
class WatermarkNumbers final {
public:
    WatermarkNumbers() = default;
    /// Fills the controls; the record's numbers lie in their ranges.
    WatermarkNumbers(WindowRef window, _WatermarkData* record);

    /// Takes the number over; other arrows' ids do nothing.
    void numberWasChanged(SInt32 arrows) const;
    /// Of what was typed last for that kind; see SettleSpinControl.
    [[nodiscard]] bool settle(WatermarkKind kind) const;

private:
    [[nodiscard]] ControlRef control(SInt32 id) const;

    WindowRef window_ = nullptr;
    _WatermarkData* record_ = nullptr;
};

}  // namespace kalmo
