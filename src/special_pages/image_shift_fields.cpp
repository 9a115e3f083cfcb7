#include "special_pages/image_shift_fields.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "controls/modal_dialog.h"
#include "controls/spin_control.h"
#include "foundation/locale.h"
#include "settings/setting_menus.h"
#include "shell/base/texts.h"
#include "special_pages/page_dialog.h"

namespace kalmo {
namespace {

constexpr SInt32 kOptionID = 502, kUnitLabelID = 503, kUnitID = 504, kRightID = 505, kUpID = 506,
                 kSide1ID = 510, kSide2ID = 520;
constexpr SInt32 kUnitIDs[] = {kUnitLabelID, kUnitID, kRightID, kUpID};

struct DistanceRow {
    SInt32 arrows, field;
    SInt32 _IS_Options::*value;
    bool isSide1;
};
constexpr DistanceRow kDistances[] = {
    {512, 511, &_IS_Options::X1, true},
    {514, 513, &_IS_Options::Y1, true},
    {522, 521, &_IS_Options::X2, false},
    {524, 523, &_IS_Options::Y2, false},
};

constexpr SInt32 kInches = 1, kMillimetres = 2;
/// Metric units of one inch unit.
constexpr double kMetricOfInches = 2.54;

void AppendItem(CFBundleRef bundle, ControlRef popup, CFStringRef key, SInt32 value) {
    const MenuRef menu = GetControlPopupMenu(popup);
    UInt16 item = 0;
    AppendMenuItemTextWithCFString(menu, CopyText(bundle, key), kMenuItemPlain, 0, &item);
    SetMenuItemRefCon(menu, item, value);
    SetControl32BitMaximum(popup, item);
}

}  // namespace

/// Two inches, or as much in millimetres, are more than any sheet's margins.
struct ImageShiftFields::Unit {
    SInt32 item, most, decimals;
};

ControlRef ImageShiftFields::control(SInt32 id) const {
    ControlRef found = nullptr;
    GetControlByID(window_, {kDialogSignature, id}, &found);
    return found;
}

const ImageShiftFields::Unit& ImageShiftFields::unit() const {
    static constexpr Unit kInchUnit = {kInches, 200, 2}, kMetricUnit = {kMillimetres, 508, 1};
    return inches_ ? kInchUnit : kMetricUnit;
}

void ImageShiftFields::setUp(WindowRef window) {
    const _IS_Options& options = *context_.options;
    window_ = window;
    inches_ = options.Option == kPrinterDefault ? !CFLocaleUsesMetricSystem() : options.Inches;
    fillPopups();
    for (const DistanceRow& row : kDistances) {
        SetUpSpinControl(window, kDialogSignature,
                         {.arrows = row.arrows,
                          .field = row.field,
                          .minimum = -unit().most,
                          .maximum = unit().most,
                          .decimals = unit().decimals});
        showDistance(row.arrows, options.*row.value);
    }
    enableFields();
}

void ImageShiftFields::fillPopups() {
    const CFBundleRef bundle = context_.bundle;
    const ControlRef option = control(kOptionID), unitPopup = control(kUnitID);
    AppendItem(bundle, option, CFSTR("ImageShiftNone"), kPrinterDefault);
    AppendItem(bundle, option, CFSTR("ImageShiftSame"), kSameShift);
    AppendItem(bundle, option, CFSTR("ImageShiftOfEachSide"), kShiftOfEachSide);
    ChooseInPopup(bundle, option, context_.options->Option);
    AppendItem(bundle, unitPopup, CFSTR("Inches"), kInches);
    AppendItem(bundle, unitPopup, CFSTR("Millimeters"), kMillimetres);
    SetPopupButtonToTicketValue(unitPopup, unit().item);
}

/// What a ticket puts out of the range is held at its end.
void ImageShiftFields::showDistance(SInt32 arrows, SInt32 value) {
    SetSpinControlValue(control(arrows), std::clamp(value, -unit().most, unit().most));
}

void ImageShiftFields::controlWasHit(SInt32 id) {
    if (id == kOptionID) enableFields();
    const bool inches = GetPopupButtonTicketValue(control(kUnitID)) == kInches;
    if (id == kUnitID && inches != inches_) changeUnit();
}

/// The distances stay, in other numbers.
void ImageShiftFields::changeUnit() {
    inches_ = !inches_;
    const double factor = inches_ ? 1 / kMetricOfInches : kMetricOfInches;
    for (const DistanceRow& row : kDistances) {
        const ControlRef arrows = control(row.arrows);
        const auto value = std::lround(GetControl32BitValue(arrows) * factor);
        SetSpinControlRange(arrows, -unit().most, unit().most, unit().decimals);
        showDistance(row.arrows, static_cast<SInt32>(value));
    }
}

void ImageShiftFields::enableFields() {
    const auto enable = [this](SInt32 id, bool on) {
        on ? EnableControl(control(id)) : DisableControl(control(id));
    };
    const bool shifts = choice() != kPrinterDefault, apart = shifts && choice() != kSameShift;
    for (const SInt32 id : kUnitIDs) enable(id, shifts);
    const auto side1 = apart || !shifts ? CopyText(context_.bundle, CFSTR("Image Shift Side 1:"))
                                        : CopyText(context_.bundle, CFSTR("ImageShiftBothSides:"));
    SetControlTitleWithCFString(control(kSide1ID), side1);
    enable(kSide1ID, shifts);
    enable(kSide2ID, apart);
    for (const DistanceRow& row : kDistances) {
        for (const SInt32 id : {row.field, row.arrows}) enable(id, row.isSide1 ? shifts : apart);
    }
}

bool ImageShiftFields::settle() const {
    return std::ranges::all_of(kDistances, [this](const DistanceRow& row) {
        return !IsControlEnabled(control(row.field)) || SettleSpinControl(control(row.arrows));
    });
}

void ImageShiftFields::take() {
    _IS_Options& options = *context_.options;
    options.Option = choice();
    if (options.Option == kPrinterDefault) return;
    options.valid = true;
    options.Inches = inches_;
    for (const DistanceRow& row : kDistances)
        options.*row.value = GetControl32BitValue(control(row.arrows));
    if (options.Option != kSameShift) return;
    options.X2 = options.X1;
    options.Y2 = options.Y1;
}

SInt32 ImageShiftFields::choice() const { return GetPopupButtonTicketValue(control(kOptionID)); }

}  // namespace kalmo
