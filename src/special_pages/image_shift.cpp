#include "special_pages/image_shift.h"

#include <algorithm>

#include "settings/dictionary.h"
#include "settings/ticket.h"
#include "special_pages/ticket_flags.h"

namespace kalmo {
namespace {

// One inch unit counts 25.4 in full precision, one metric unit 10; both here in tenths.
constexpr CFIndex kTenthsPerInchUnit = 254;
constexpr CFIndex kTenthsPerMetricUnit = 100;

CFIndex TenthsPerUnit(bool inches) { return inches ? kTenthsPerInchUnit : kTenthsPerMetricUnit; }

/// Rounded to the nearest, halves away from zero.
CFIndex FullPrecision(SInt32 value, bool inches) {
    const CFIndex tenths = value * TenthsPerUnit(inches);
    return (tenths + (tenths < 0 ? -5 : 5)) / 10;
}

SInt32 Saturated(CFIndex value) {
    return static_cast<SInt32>(std::clamp<CFIndex>(value, INT32_MIN, INT32_MAX));
}

/// Truncated towards zero. Divided before it is multiplied, since a ticket may hold any number.
SInt32 OwnUnits(CFIndex value, bool inches) {
    const CFIndex unit = TenthsPerUnit(inches);
    return Saturated(value / unit * 10 + value % unit * 10 / unit);
}

CFIndex NumberInDictionary(CFDictionaryRef dictionary, CFStringRef key, CFIndex missing) {
    CFIndex value = missing;
    GetCFIndexFromCFDictionary(dictionary, key, &value);
    return value;
}

bool IsFullPrecision(CFDictionaryRef dictionary) {
    return CFBooleanGetValue(BooleanInDictionary(dictionary, CFSTR("FullPrecision")));
}

}  // namespace

void ImageShiftInitialize(CFBundleRef bundle, ImageShiftContext* dialog, _IS_Options* options) {
    *options = {.valid = true};
    if (dialog) *dialog = {.bundle = bundle, .options = options};
}

CFDictionaryRef ImageShiftCreateTicketFromOptions(const _IS_Options* options, JobContext) {
    if (!options || !options->valid || options->Option == kPrinterDefault) return nullptr;
    const CFMutableDictionaryRef dictionary = CFDictionaryCreateMutable(kCFAllocatorDefault, 0);
    WriteTicketValue(dictionary, CFSTR("Option"), options->Option);
    WriteTicketValue(dictionary, CFSTR("Inches"), options->Inches ? 1 : 0);
    CFDictionarySetValue(dictionary, CFSTR("FullPrecision"), kCFBooleanTrue);
    WriteTicketValue(dictionary, CFSTR("X1"), FullPrecision(options->X1, options->Inches));
    WriteTicketValue(dictionary, CFSTR("Y1"), FullPrecision(options->Y1, options->Inches));
    WriteTicketValue(dictionary, CFSTR("X2"), FullPrecision(options->X2, options->Inches));
    WriteTicketValue(dictionary, CFSTR("Y2"), FullPrecision(options->Y2, options->Inches));
    return dictionary;
}

void ImageShiftSetOptionsFromTicket(CFDictionaryRef dictionary, _IS_Options* options) {
    const auto shift = [&, full = IsFullPrecision(dictionary)](CFStringRef key) {
        const CFIndex value = NumberInDictionary(dictionary, key, 0);
        return full ? OwnUnits(value, options->Inches) : Saturated(value);
    };
    options->Option = Saturated(NumberInDictionary(dictionary, CFSTR("Option"), kPrinterDefault));
    options->Inches = FlagInDictionary(dictionary, CFSTR("Inches"), true);
    options->X1 = shift(CFSTR("X1"));
    options->Y1 = shift(CFSTR("Y1"));
    options->X2 = shift(CFSTR("X2"));
    options->Y2 = shift(CFSTR("Y2"));
    options->valid = true;
}

}  // namespace kalmo
