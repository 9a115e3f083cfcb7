// The printer's full colour adjustments, as a record and as the dictionary that a ticket carries.
//
// The pane shows no control for them: a colour panel in a plug-in of its own does, and takes the
// record from this one. What the numbers of kinds, trapping, overprint and renderings mean is
// between that panel and its printer.
#pragma once

#include "foundation/collections.h"
#include "settings/setting_map.h"

namespace kalmo {

/// The kind of a profile that is known by its name; every other kind is a built-in choice.
enum : SInt32 { kNamedDestination = 2, kNamedCMYKProfile = 3, kNamedRGBProfile = 5 };

/// A profile by the number of a built-in choice or by name. The name of an earlier choice may stay
/// behind a built-in kind; it means nothing then.
struct ColorProfile {
    SInt32 namedKind;
    SInt32 kind = kPrinterDefault;
    Owned<CFStringRef> name = {};
};

/// Integers are 32-bit, and kPrinterDefault where nothing is set, as all are at first; strings and
/// objects are null then.
///
/// Getters answer 0 and lend what they write; a null out argument is refused with -50. Setters
/// answer 0, or change nothing and answer -50 when a value is out of its range. Names have at most
/// 255 UTF-16 units. No range is asked of what a ticket holds, but for the length of names.
class [[gnu::visibility("default")]] FullColorOptions {
public:
    FullColorOptions();
    /// What fromTicket reads over the defaults. `dictionary` may be null.
    explicit FullColorOptions(CFDictionaryRef dictionary);
    FullColorOptions(const FullColorOptions& other);
    FullColorOptions& operator=(const FullColorOptions& other);
    virtual ~FullColorOptions();

    // Each -100 to 100, or not set.
    OSStatus lightness(SInt32 * lightness) const;
    OSStatus setLightness(SInt32 lightness);
    OSStatus contrast(SInt32 * contrast) const;
    OSStatus setContrast(SInt32 contrast);
    OSStatus saturation(SInt32 * saturation) const;
    OSStatus setSaturation(SInt32 saturation);
    /// Fails only when all three are null.
    OSStatus colorCast(SInt32 * cyanRed, SInt32 * magentaGreen, SInt32 * yellowBlue) const;
    OSStatus setColorCast(SInt32 cyanRed, SInt32 magentaGreen, SInt32 yellowBlue);

    OSStatus trapping(SInt32 * trapping) const;
    OSStatus setTrapping(SInt32 trapping);
    /// Mind the order. Fails only when both are null.
    OSStatus trappingAdjustment(SInt32 * slow, SInt32 * fast) const;
    /// Each 0 to 20, or not set.
    OSStatus setTrappingAdjustment(SInt32 slow, SInt32 fast);
    OSStatus blackOverprint(SInt32 * overprint) const;
    OSStatus setBlackOverprint(SInt32 overprint);
    /// The tone reproduction curve: any property list, or null.
    OSStatus trc(CFPropertyListRef * curve) const;
    OSStatus setTRC(CFPropertyListRef curve);

    // Getters need both out arguments, and write the name only of the named kind. Setters ask for a
    // name with the named kind, and otherwise pass over it and keep the one that was there.
    OSStatus rgbImagesProfile(SInt32 * kind, CFStringRef * name) const;
    OSStatus setRGBImagesProfile(SInt32 kind, CFStringRef name);
    OSStatus rgbTextAndGraphicsProfile(SInt32 * kind, CFStringRef * name) const;
    OSStatus setRGBTextAndGraphicsProfile(SInt32 kind, CFStringRef name);
    OSStatus cmykImagesProfile(SInt32 * kind, CFStringRef * name) const;
    OSStatus setCMYKImagesProfile(SInt32 kind, CFStringRef name);
    OSStatus cmykTextAndGraphicsProfile(SInt32 * kind, CFStringRef * name) const;
    OSStatus setCMYKTextAndGraphicsProfile(SInt32 kind, CFStringRef name);
    OSStatus destinationProfile(SInt32 * kind, CFStringRef * name) const;
    OSStatus setDestinationProfile(SInt32 kind, CFStringRef name);
    // Names alone; null takes one away.
    OSStatus grayImagesProfile(CFStringRef * name) const;
    OSStatus setGrayImagesProfile(CFStringRef name);
    OSStatus grayTextAndGraphicsProfile(CFStringRef * name) const;
    OSStatus setGrayTextAndGraphicsProfile(CFStringRef name);

    OSStatus imageObjectRendering(SInt32 * rendering) const;
    OSStatus setImageObjectRendering(SInt32 rendering);
    OSStatus textObjectRendering(SInt32 * rendering) const;
    OSStatus setTextObjectRendering(SInt32 rendering);
    OSStatus graphicObjectRendering(SInt32 * rendering) const;
    OSStatus setGraphicObjectRendering(SInt32 rendering);

    /// What is set, numbers as the platform's index kind: the colour cast only when all three of it
    /// are set, the trapping's directions only when trapping is 1, a profile as its name or as the
    /// number of its kind. The caller releases it; null when memory is short.
    [[nodiscard]] CFMutableDictionaryRef asTicket() const;
    /// Fields whose keys are absent stay, but for the trapping: its three are then not set, and
    /// each direction is not set without a key of its own. A value of the wrong type, a number that
    /// does not fit and an over-long name count as absent. Null reads nothing.
    void fromTicket(CFDictionaryRef dictionary);

private:
    struct [[gnu::visibility("hidden")]] Tables;

    [[gnu::visibility("hidden")]] void readTrapping(CFDictionaryRef dictionary);

    SInt32 lightness_ = kPrinterDefault, contrast_ = kPrinterDefault, saturation_ = kPrinterDefault;
    SInt32 cyanRed_ = kPrinterDefault, magentaGreen_ = kPrinterDefault,
           yellowBlue_ = kPrinterDefault;
    SInt32 trapping_ = kPrinterDefault, fast_ = kPrinterDefault, slow_ = kPrinterDefault;
    SInt32 blackOverprint_ = kPrinterDefault;
    Owned<CFPropertyListRef> trc_;
    ColorProfile rgbImages_{kNamedRGBProfile}, rgbTextAndGraphics_{kNamedRGBProfile};
    ColorProfile cmykImages_{kNamedCMYKProfile}, cmykTextAndGraphics_{kNamedCMYKProfile};
    Owned<CFStringRef> grayImages_, grayTextAndGraphics_;
    ColorProfile destination_{kNamedDestination};
    SInt32 imageRendering_ = kPrinterDefault, textRendering_ = kPrinterDefault,
           graphicRendering_ = kPrinterDefault;
};

}  // namespace kalmo
