// Image shift: how far the printed image moves on each side of the sheet, as a record and as the
// dictionary that an exception page carries.
#pragma once

#include "foundation/collections.h"
#include "settings/setting_map.h"

namespace kalmo {

/// Shifts are whole numbers of the record's unit.
struct _IS_Options {
    bool valid = false;                       // initialised or read
    SInt32 shownSide = 1;                     // the dialog's own state: the ticket has
    SInt32 previousOption = kPrinterDefault;  // neither of these two
    SInt32 Option = kPrinterDefault;          // the choice; kPrinterDefault: no image shift
    SInt32 shownStep = 0;                     // the dialog's own state too
    bool Inches = true;                       // the inch unit, else the metric one
    SInt32 X1 = 0, X2 = 0, Y1 = 0, Y2 = 0;    // horizontal of side 1 and 2, vertical of both
};

/// The record that a dialog edits, and the bundle of its texts.
struct ImageShiftContext {
    CFBundleRef bundle = nullptr;    // lent
    _IS_Options* options = nullptr;  // lent
};

/// Sets the record to no image shift; binds it and the bundle to `dialog`, which may be null.
void ImageShiftInitialize(CFBundleRef bundle, ImageShiftContext* dialog, _IS_Options* options);

/// "Option", "Inches" (1 or 0), "FullPrecision" (true), and "X1", "Y1", "X2", "Y2" in full
/// precision: an inch unit counts 25.4, rounded to the nearest with halves away from zero, a metric
/// one 10. Null without a valid record or without an image shift. The caller releases it.
[[nodiscard]] CFDictionaryRef ImageShiftCreateTicketFromOptions(const _IS_Options* options,
                                                                JobContext context);
/// The way back, truncated towards zero; without "FullPrecision" the values are the record's own.
/// Missing: no shift, inches, 0. A value of another kind counts as missing. The record is valid
/// afterwards.
void ImageShiftSetOptionsFromTicket(CFDictionaryRef dictionary, _IS_Options* options);

}  // namespace kalmo
