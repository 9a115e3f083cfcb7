#include "watermark/watermark_numbers.h"

#include <algorithm>

#include "controls/modal_dialog.h"
#include "controls/spin_control.h"
#include "watermark/watermark_limits.h"

namespace kalmo {
namespace {

using Sign = SpinControlSetup::Sign;
using enum WatermarkKind;

constexpr struct Row {
    WatermarkKind kind;
    WatermarkNumber number;
    SInt32 field, arrows, slider;
    Sign sign;
} kRows[] = {
    {text, kFontSizeRange, 308, 309, 0, Sign::none},
    {text, kAngleRange, 313, 314, 315, Sign::angle},
    {text, kDensityRange, 317, 318, 319, Sign::percent},
    {picture, kScaleRange, 405, 406, 407, Sign::percent},
};

}  // namespace

WatermarkNumbers::WatermarkNumbers(WindowRef window, _WatermarkData* record)
    : window_(window), record_(record) {
    for (const Row& row : kRows) {
        SetUpSpinControl(window, kDialogSignature,
                         {.arrows = row.arrows,
                          .field = row.field,
                          .slider = row.slider,
                          .minimum = row.number.minimum,
                          .maximum = row.number.maximum,
                          .sign = row.sign});
        SetSpinControlValue(control(row.arrows), record->*row.number.field);
    }
}

void WatermarkNumbers::numberWasChanged(SInt32 arrows) const {
    for (const Row& row : kRows)
        if (row.arrows == arrows)
            record_->*row.number.field = GetControl32BitValue(control(arrows));
}

bool WatermarkNumbers::settle(WatermarkKind kind) const {
    return std::ranges::all_of(kRows, [&](const Row& row) {
        return row.kind != kind || SettleSpinControl(control(row.arrows));
    });
}

ControlRef WatermarkNumbers::control(SInt32 id) const {
    ControlRef found = nullptr;
    GetControlByID(window_, {kDialogSignature, id}, &found);
    return found;
}

}  // namespace kalmo
