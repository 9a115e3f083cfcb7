#include <algorithm>
#include <new>
#include <span>

#include "image_options/color_profile.h"
#include "settings/dictionary.h"
#include "settings/ticket.h"

namespace kalmo {
namespace {

template <typename Field>
struct Row {
    const char* key;
    Field FullColorOptions::*field;
};
template <typename Field>
using Rows = std::span<const Row<Field>>;
using NumberRows = Rows<SInt32>;
using ProfileRows = Rows<ColorProfile>;

struct NameRow {
    const char* key;
    Owned<CFStringRef> FullColorOptions::*field;
    OSStatus (FullColorOptions::*set)(CFStringRef name);
};
using NameRows = std::span<const NameRow>;

constexpr char kColorCastKey[] = "FCColorCast";
constexpr char kTrappingKey[] = "FCTrapping";
constexpr char kCurveKey[] = "FCTRC";

/// The only trapping that has widths.
constexpr SInt32 kTrappingWithWidths = 1;

void WriteNumber(CFMutableDictionaryRef dictionary, const char* key, SInt32 value) {
    if (value != kPrinterDefault) WriteTicketValue(dictionary, CFStringMakeConstant(key), value);
}

void WriteObject(CFMutableDictionaryRef dictionary, const char* key, CFTypeRef value) {
    if (value) CFDictionarySetValue(dictionary, CFStringMakeConstant(key), value);
}

void WriteNumbers(NumberRows rows, const FullColorOptions& options,
                  CFMutableDictionaryRef dictionary) {
    for (const auto& [key, field] : rows) WriteNumber(dictionary, key, options.*field);
}

/// A ticket may hold the named kind as a number; without a name there is nothing to write then.
void WriteProfiles(ProfileRows rows, const FullColorOptions& options,
                   CFMutableDictionaryRef dictionary) {
    for (const auto& [key, field] : rows) {
        const ColorProfile& profile = options.*field;
        if (profile.kind == profile.namedKind)
            WriteObject(dictionary, key, profile.name);
        else
            WriteNumber(dictionary, key, profile.kind);
    }
}

void WriteNames(NameRows rows, const FullColorOptions& options, CFMutableDictionaryRef dictionary) {
    for (const auto& [key, field, set] : rows) WriteObject(dictionary, key, options.*field);
}

bool IsComplete(NumberRows rows, const FullColorOptions& options) {
    return std::ranges::all_of(
        rows, [&](const auto& row) { return options.*row.field != kPrinterDefault; });
}

void ReadNumbers(NumberRows rows, FullColorOptions& options, CFDictionaryRef dictionary) {
    for (const auto& [key, field] : rows)
        options.*field =
            SInt32InDictionary(dictionary, CFStringMakeConstant(key)).value_or(options.*field);
}

void ReadProfiles(ProfileRows rows, FullColorOptions& options, CFDictionaryRef dictionary) {
    for (const auto& [key, field] : rows) {
        const CFStringRef constant = CFStringMakeConstant(key);
        ColorProfile& profile = options.*field;
        if (const auto kind = SInt32InDictionary(dictionary, constant))
            profile.kind = *kind;
        else
            SetProfile(profile, profile.namedKind, StringInDictionary(dictionary, constant));
    }
}

void ReadNames(NameRows rows, FullColorOptions& options, CFDictionaryRef dictionary) {
    for (const auto& [key, field, set] : rows)
        if (const CFStringRef name = StringInDictionary(dictionary, CFStringMakeConstant(key)))
            (options.*set)(name);
}

}  // namespace

/// In the order in which they are written.
struct FullColorOptions::Tables {
    static constexpr Row<SInt32> kAdjustments[] = {
        {"FCLightness", &FullColorOptions::lightness_},
        {"FCContrast", &FullColorOptions::contrast_},
        {"FCSaturation", &FullColorOptions::saturation_},
    };
    static constexpr Row<SInt32> kColorCast[] = {
        {"FCCyanRed", &FullColorOptions::cyanRed_},
        {"FCMagentaGreen", &FullColorOptions::magentaGreen_},
        {"FCYellowBlue", &FullColorOptions::yellowBlue_},
    };
    static constexpr Row<SInt32> kTrappingWidths[] = {
        {"FCTrappingFastDirection", &FullColorOptions::fast_},
        {"FCTrappingSlowDirection", &FullColorOptions::slow_},
    };
    static constexpr Row<SInt32> kOverprint[] = {
        {"FCBlackOverprint", &FullColorOptions::blackOverprint_},
    };
    static constexpr Row<ColorProfile> kProfiles[] = {
        {"RGBImagesProfile", &FullColorOptions::rgbImages_},
        {"RGBTextAndGraphicsProfile", &FullColorOptions::rgbTextAndGraphics_},
        {"CMYKImagesProfile", &FullColorOptions::cmykImages_},
        {"CMYKTextAndGraphicsProfile", &FullColorOptions::cmykTextAndGraphics_},
        {"DestinationProfile", &FullColorOptions::destination_},
    };
    static constexpr NameRow kGrayProfiles[] = {
        {"GrayImagesProfile", &FullColorOptions::grayImages_,
         &FullColorOptions::setGrayImagesProfile},
        {"GrayTextAndGraphicsProfile", &FullColorOptions::grayTextAndGraphics_,
         &FullColorOptions::setGrayTextAndGraphicsProfile},
    };
    static constexpr Row<SInt32> kRenderings[] = {
        {"ImageRendering", &FullColorOptions::imageRendering_},
        {"TextRendering", &FullColorOptions::textRendering_},
        {"GraphicRendering", &FullColorOptions::graphicRendering_},
    };
};

CFMutableDictionaryRef FullColorOptions::asTicket() const try {
    auto ticket =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    if (!ticket) return nullptr;
    WriteNumbers(Tables::kAdjustments, *this, ticket);
    if (IsComplete(Tables::kColorCast, *this)) {
        const auto cast =
            Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
        WriteNumbers(Tables::kColorCast, *this, cast);
        WriteObject(ticket, kColorCastKey, cast);
    }
    WriteNumber(ticket, kTrappingKey, trapping_);
    if (trapping_ == kTrappingWithWidths) WriteNumbers(Tables::kTrappingWidths, *this, ticket);
    WriteNumbers(Tables::kOverprint, *this, ticket);
    WriteObject(ticket, kCurveKey, trc_);
    WriteProfiles(Tables::kProfiles, *this, ticket);
    WriteNames(Tables::kGrayProfiles, *this, ticket);
    WriteNumbers(Tables::kRenderings, *this, ticket);
    return ticket.detach();
} catch (const std::bad_alloc&) {
    return nullptr;
}

void FullColorOptions::fromTicket(CFDictionaryRef dictionary) {
    if (!dictionary) return;
    ReadNumbers(Tables::kAdjustments, *this, dictionary);
    ReadNumbers(Tables::kColorCast, *this,
                DictionaryInDictionary(dictionary, CFStringMakeConstant(kColorCastKey)));
    readTrapping(dictionary);
    ReadNumbers(Tables::kOverprint, *this, dictionary);
    if (const CFTypeRef curve = CFDictionaryGetValue(dictionary, CFStringMakeConstant(kCurveKey)))
        setTRC(curve);
    ReadProfiles(Tables::kProfiles, *this, dictionary);
    ReadNames(Tables::kGrayProfiles, *this, dictionary);
    ReadNumbers(Tables::kRenderings, *this, dictionary);
}

/// The widths belong to the trapping beside them: those of an earlier one never stay.
void FullColorOptions::readTrapping(CFDictionaryRef dictionary) {
    const auto trapping = SInt32InDictionary(dictionary, CFStringMakeConstant(kTrappingKey));
    trapping_ = trapping.value_or(kPrinterDefault);
    for (const auto& [key, field] : Tables::kTrappingWidths) {
        const auto width = SInt32InDictionary(dictionary, CFStringMakeConstant(key));
        this->*field = trapping ? width.value_or(kPrinterDefault) : kPrinterDefault;
    }
}

}  // namespace kalmo
