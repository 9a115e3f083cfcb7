#include "paper_output/stock/custom_size_dialog.h"

#include <algorithm>
#include <climits>
#include <cmath>

#include "controls/modal_dialog.h"
#include "controls/spin_control.h"
#include "foundation/locale.h"
#include "settings/ppd_access.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

/// How sizes are shown: a side in units of the arrows, one unit in tenths of a millimetre (the
/// record's) and in pt.
struct SizeUnit {
    SInt32 decimals;
    double tenthsOfMillimetre, points;
    SInt32 usualWidth, usualLength;  // what the dialog starts with when there is no size yet
    CFStringRef rangeKey;
};
SizeUnit UserUnit() {
    if (CFLocaleUsesMetricSystem())
        return {1, 1, 72 / 254.0, 2100, 2970, CFSTR("Custom Size Millimetres")};
    return {2, 2.54, 0.72, 850, 1100, CFSTR("Custom Size Inches")};
}

/// 1 to 20 inches, for printers that say nothing: a stock may be meant for a printer that does, so
/// this only keeps out what no tray of an office or production printer takes.
constexpr PPDCustomSizes kUsualLimits = {72, 1440, 72, 1440};

/// The controls of one side, and its limits in pt.
struct Side {
    SInt32 field, arrows, range;
    double minimum, maximum;
};
/// Pressed arrows reach the next size of interest in steps of 1 mm or 0.1 inch.
constexpr SInt32 kStep = 10;

class CustomSizeDialog final : public ModalDialog {
public:
    CustomSizeDialog(CFBundleRef bundle, const PPDCustomSizes& limits, Stock* stock)
        : ModalDialog(bundle, {.file = CFSTR("CustomSize"),
                               .window = CFSTR("CustomSize"),
                               .helpPage = CFSTR("Paper_Output/Paper/custom_size.htm")}),
          width_{101, 102, 103, limits.minimumWidth, limits.maximumWidth},
          length_{111, 112, 113, limits.minimumLength, limits.maximumLength},
          stock_(stock) {}

protected:
    void prepare() override {
        prepareSide(width_, shown(stock_->width(), unit_.usualWidth));
        prepareSide(length_, shown(stock_->length(), unit_.usualLength));
        SetKeyboardFocus(control(width_.field));
        SetControlTextSelection(control(width_.field), {0, INT32_MAX});
    }

    bool accept() override {
        for (const Side& side : {width_, length_}) {
            if (SpinControlIsInputValid(control(side.arrows))) continue;
            RefuseSpinControl(control(side.arrows));
            return false;
        }
        const SInt32 width = stored(width_, stock_->width());
        const SInt32 length = stored(length_, stock_->length());
        stock_->setWidth(width);
        stock_->setLength(length);
        return true;
    }

private:
    [[nodiscard]] SInt32 shown(SInt32 tenths, SInt32 usual) const {
        if (tenths == kUnset) return usual;
        return static_cast<SInt32>(std::lround(tenths / unit_.tenthsOfMillimetre));
    }

    /// A value that the user left as it was shown stays as it was, to the tenth of a millimetre.
    [[nodiscard]] SInt32 stored(const Side& side, SInt32 before) const {
        const SInt32 value = GetControl32BitValue(control(side.arrows));
        if (before != kUnset && shown(before, 0) == value) return before;
        return static_cast<SInt32>(std::lround(value * unit_.tenthsOfMillimetre));
    }

    void prepareSide(const Side& side, SInt32 value) {
        // Inside the limits: what is shown must be what the printer takes.
        const auto least = static_cast<SInt32>(std::ceil(side.minimum / unit_.points - kAHair));
        const auto most =
            std::max(least, static_cast<SInt32>(std::floor(side.maximum / unit_.points + kAHair)));
        SetUpSpinControl(window(), kDialogSignature,
                         {.arrows = side.arrows,
                          .field = side.field,
                          .minimum = least,
                          .maximum = most,
                          .step = kStep,
                          .decimals = unit_.decimals});
        SetSpinControlValue(control(side.arrows), std::clamp(value, least, most));
        showRange(side, least, most);
    }

    void showRange(const Side& side, SInt32 least, SInt32 most) {
        const auto from = Owned<CFStringRef>::Adopt(
            CreateLocalizedCFStringFromNumberWithDecimals(least, unit_.decimals));
        const auto to = Owned<CFStringRef>::Adopt(
            CreateLocalizedCFStringFromNumberWithDecimals(most, unit_.decimals));
        const auto range = Owned<CFStringRef>::Adopt(CFStringCreateWithFormat(
            kCFAllocatorDefault, CopyText(bundle(), unit_.rangeKey).get(), from.get(), to.get()));
        SetControlTitleWithCFString(control(side.range), range);
        SetControlAccessibleDescription(control(side.field), range);
    }

    /// Of a unit: 72 pt are 254 tenths of a millimetre, whatever the division says.
    static constexpr double kAHair = 1e-6;

    SizeUnit unit_ = UserUnit();
    Side width_, length_;
    Stock* stock_;
};

}  // namespace

SInt32 RunModalCustomSizeDialog(CFBundleRef bundle, Stock* stock) {
    if (!stock) return paramErr;
    const auto limits = PPDGetCustomSizes(PPDGetCurrent()).value_or(kUsualLimits);
    return CustomSizeDialog(bundle, limits, stock).run();
}

}  // namespace kalmo
