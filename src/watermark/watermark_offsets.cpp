#include "watermark/watermark_offsets.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "controls/modal_dialog.h"
#include "controls/spin_control.h"
#include "watermark/watermark_limits.h"

namespace kalmo {
namespace {

constexpr SInt32 kUnitsID = 321, kRightID = 323, kRightArrowsID = 324, kUpID = 326,
                 kUpArrowsID = 327;

/// A record's `units`, in the order of the popup: how fine the fields are, and how many digits of
/// a step's number are fraction.
constexpr struct Units {
    double stepsPerInch;
    SInt32 decimals;
} kUnits[] = {{10, 1}, {25.4, 0}};
static_assert(std::size(kUnits) == kOffsetUnitsCount);

/// In whole steps.
SInt32 Farthest(const Units& units, double length) {
    return static_cast<SInt32>(std::floor(FarthestOffset(length) * units.stepsPerInch));
}

}  // namespace

/// `towards`: whether the offset grows with the pixels of the screen (1) or against them (-1).
struct WatermarkOffsets::Row {
    float _WatermarkData::*inches;
    double CGSize::*length;
    SInt32 field, arrows;
    int towards;
};
const WatermarkOffsets::Row WatermarkOffsets::kRows[] = {
    {&_WatermarkData::xOffset, &CGSize::width, kRightID, kRightArrowsID, 1},
    {&_WatermarkData::yOffset, &CGSize::height, kUpID, kUpArrowsID, -1},
};

WatermarkOffsets::WatermarkOffsets(WindowRef window, _WatermarkData* record, const CGSize& page)
    : window_(window), record_(record), page_(page) {
    SetControl32BitValue(control(kUnitsID), record->units + 1);
    for (const Row& row : kRows)
        SetUpSpinControl(window, kDialogSignature, {.arrows = row.arrows, .field = row.field});
    show();
}

void WatermarkOffsets::controlWasHit(SInt32 id) {
    if (id != kUnitsID) return;
    record_->units = GetControl32BitValue(control(kUnitsID)) - 1;
    show();
}

void WatermarkOffsets::numberWasChanged(SInt32 arrows) {
    for (const Row& row : kRows)
        if (row.arrows == arrows) take(row);
}

bool WatermarkOffsets::settle() const {
    return std::ranges::all_of(
        kRows, [this](const Row& row) { return SettleSpinControl(control(row.arrows)); });
}

void WatermarkOffsets::beginDrag(const Place& place) {
    drag_ = Drag{place, {record_->xOffset, record_->yOffset}};
}

void WatermarkOffsets::dragTo(const Place& place, double inchesPerPixel) {
    for (std::size_t i = 0; drag_ && i < std::size(kRows); ++i) {
        const Row& row = kRows[i];
        const double moved = (place[i] - drag_->start[i]) * row.towards * inchesPerPixel;
        SetSpinControlValue(control(row.arrows), steps(row, drag_->inches[i] + moved));
        take(row);
    }
}

void WatermarkOffsets::show() const {
    const Units& units = kUnits[record_->units];
    for (const Row& row : kRows) {
        const SInt32 most = Farthest(units, page_.*row.length);
        SetSpinControlRange(control(row.arrows), -most, most, units.decimals);
        SetSpinControlValue(control(row.arrows), steps(row, record_->*row.inches));
    }
}

void WatermarkOffsets::take(const Row& row) const {
    const SInt32 shown = GetControl32BitValue(control(row.arrows));
    if (shown != steps(row, record_->*row.inches))
        record_->*row.inches = static_cast<float>(shown / kUnits[record_->units].stepsPerInch);
}

/// The nearest, held within half the page.
SInt32 WatermarkOffsets::steps(const Row& row, double inches) const {
    const Units& units = kUnits[record_->units];
    const SInt32 most = Farthest(units, page_.*row.length);
    return static_cast<SInt32>(
        std::clamp<double>(std::round(inches * units.stepsPerInch), -most, most));
}

ControlRef WatermarkOffsets::control(SInt32 id) const {
    ControlRef found = nullptr;
    GetControlByID(window_, {kDialogSignature, id}, &found);
    return found;
}

}  // namespace kalmo
