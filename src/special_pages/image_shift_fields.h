// Where a dialog asks how far the image moves on either side of the sheet.
#pragma once

#include "special_pages/image_shift.h"
#include "toolbox/controls.h"

namespace kalmo {

/// Choices of image shift.
inline constexpr SInt32 kSameShift = 1, kShiftOfEachSide = 2;

/// Edits a record that its owner holds: distances to the right and upwards, in 1/100 inch or 0.1
/// mm.
class ImageShiftFields final {
public:
    ImageShiftFields(CFBundleRef bundle, _IS_Options* options)
        : context_{.bundle = bundle, .options = options} {}

    void setUp(WindowRef window);
    /// For the hit of any control.
    void controlWasHit(SInt32 id);
    /// False with the focus in a field whose number is out of range.
    [[nodiscard]] bool settle() const;
    /// Into the record. Without an image shift the distances stay as they were.
    void take();
    /// kPrinterDefault without one.
    [[nodiscard]] SInt32 choice() const;

private:
    struct Unit;
    [[nodiscard]] ControlRef control(SInt32 id) const;
    [[nodiscard]] const Unit& unit() const;
    void fillPopups();
    void showDistance(SInt32 arrows, SInt32 value);
    void changeUnit();
    void enableFields();

    ImageShiftContext context_;
    WindowRef window_ = nullptr;
    bool inches_ = true;  // what the fields show
};

}  // namespace kalmo
