#include "image_options/full_color_options.h"

#include <algorithm>
#include <initializer_list>

#include "image_options/color_profile.h"

namespace kalmo {
namespace {

constexpr CFIndex kLongestName = 255;

struct Range {
    SInt32 least, most;
};
constexpr Range kPercent = {-100, 100};
constexpr Range kTrappingWidth = {0, 20};

bool Lies(std::initializer_list<SInt32> values, Range range) {
    return std::ranges::all_of(values, [range](SInt32 value) {
        return value == kPrinterDefault || (value >= range.least && value <= range.most);
    });
}

template <typename Field, typename Value>
OSStatus Get(const Field& field, Value* value) {
    if (!value) return paramErr;
    *value = field;
    return noErr;
}

OSStatus Set(SInt32& field, SInt32 value) {
    field = value;
    return noErr;
}

OSStatus SetPercent(SInt32& field, SInt32 value) {
    return Lies({value}, kPercent) ? Set(field, value) : paramErr;
}

OSStatus GetProfile(const ColorProfile& profile, SInt32* kind, CFStringRef* name) {
    if (!kind || !name) return paramErr;
    *kind = profile.kind;
    if (profile.kind == profile.namedKind) *name = profile.name;
    return noErr;
}

bool IsShort(CFStringRef name) { return CFStringGetLength(name) <= kLongestName; }

OSStatus SetGrayProfile(Owned<CFStringRef>& field, CFStringRef name) {
    if (name && !IsShort(name)) return paramErr;
    field = Owned<CFStringRef>::Retain(name);
    return noErr;
}

}  // namespace

OSStatus SetProfile(ColorProfile& profile, SInt32 kind, CFStringRef name) {
    const bool isNamed = kind == profile.namedKind;
    if (isNamed && (!name || !IsShort(name))) return paramErr;
    profile.kind = kind;
    if (isNamed) profile.name = Owned<CFStringRef>::Retain(name);
    return noErr;
}

FullColorOptions::FullColorOptions() = default;
FullColorOptions::FullColorOptions(CFDictionaryRef dictionary) { fromTicket(dictionary); }
FullColorOptions::FullColorOptions(const FullColorOptions& other) = default;
FullColorOptions& FullColorOptions::operator=(const FullColorOptions& other) = default;
FullColorOptions::~FullColorOptions() = default;

OSStatus FullColorOptions::lightness(SInt32* lightness) const { return Get(lightness_, lightness); }
OSStatus FullColorOptions::setLightness(SInt32 lightness) {
    return SetPercent(lightness_, lightness);
}
OSStatus FullColorOptions::contrast(SInt32* contrast) const { return Get(contrast_, contrast); }
OSStatus FullColorOptions::setContrast(SInt32 contrast) { return SetPercent(contrast_, contrast); }
OSStatus FullColorOptions::saturation(SInt32* saturation) const {
    return Get(saturation_, saturation);
}
OSStatus FullColorOptions::setSaturation(SInt32 saturation) {
    return SetPercent(saturation_, saturation);
}

OSStatus FullColorOptions::colorCast(SInt32* cyanRed, SInt32* magentaGreen,
                                     SInt32* yellowBlue) const {
    if (!cyanRed && !magentaGreen && !yellowBlue) return paramErr;
    Get(cyanRed_, cyanRed);
    Get(magentaGreen_, magentaGreen);
    Get(yellowBlue_, yellowBlue);
    return noErr;
}
OSStatus FullColorOptions::setColorCast(SInt32 cyanRed, SInt32 magentaGreen, SInt32 yellowBlue) {
    if (!Lies({cyanRed, magentaGreen, yellowBlue}, kPercent)) return paramErr;
    cyanRed_ = cyanRed;
    magentaGreen_ = magentaGreen;
    yellowBlue_ = yellowBlue;
    return noErr;
}

OSStatus FullColorOptions::trapping(SInt32* trapping) const { return Get(trapping_, trapping); }
OSStatus FullColorOptions::setTrapping(SInt32 trapping) { return Set(trapping_, trapping); }
OSStatus FullColorOptions::trappingAdjustment(SInt32* slow, SInt32* fast) const {
    if (!slow && !fast) return paramErr;
    Get(slow_, slow);
    Get(fast_, fast);
    return noErr;
}
OSStatus FullColorOptions::setTrappingAdjustment(SInt32 slow, SInt32 fast) {
    if (!Lies({slow, fast}, kTrappingWidth)) return paramErr;
    slow_ = slow;
    fast_ = fast;
    return noErr;
}
OSStatus FullColorOptions::blackOverprint(SInt32* overprint) const {
    return Get(blackOverprint_, overprint);
}
OSStatus FullColorOptions::setBlackOverprint(SInt32 overprint) {
    return Set(blackOverprint_, overprint);
}
OSStatus FullColorOptions::trc(CFPropertyListRef* curve) const { return Get(trc_, curve); }
OSStatus FullColorOptions::setTRC(CFPropertyListRef curve) {
    trc_ = Owned<CFPropertyListRef>::Retain(curve);
    return noErr;
}

OSStatus FullColorOptions::rgbImagesProfile(SInt32* kind, CFStringRef* name) const {
    return GetProfile(rgbImages_, kind, name);
}
OSStatus FullColorOptions::setRGBImagesProfile(SInt32 kind, CFStringRef name) {
    return SetProfile(rgbImages_, kind, name);
}
OSStatus FullColorOptions::rgbTextAndGraphicsProfile(SInt32* kind, CFStringRef* name) const {
    return GetProfile(rgbTextAndGraphics_, kind, name);
}
OSStatus FullColorOptions::setRGBTextAndGraphicsProfile(SInt32 kind, CFStringRef name) {
    return SetProfile(rgbTextAndGraphics_, kind, name);
}
OSStatus FullColorOptions::cmykImagesProfile(SInt32* kind, CFStringRef* name) const {
    return GetProfile(cmykImages_, kind, name);
}
OSStatus FullColorOptions::setCMYKImagesProfile(SInt32 kind, CFStringRef name) {
    return SetProfile(cmykImages_, kind, name);
}
OSStatus FullColorOptions::cmykTextAndGraphicsProfile(SInt32* kind, CFStringRef* name) const {
    return GetProfile(cmykTextAndGraphics_, kind, name);
}
OSStatus FullColorOptions::setCMYKTextAndGraphicsProfile(SInt32 kind, CFStringRef name) {
    return SetProfile(cmykTextAndGraphics_, kind, name);
}
OSStatus FullColorOptions::destinationProfile(SInt32* kind, CFStringRef* name) const {
    return GetProfile(destination_, kind, name);
}
OSStatus FullColorOptions::setDestinationProfile(SInt32 kind, CFStringRef name) {
    return SetProfile(destination_, kind, name);
}
OSStatus FullColorOptions::grayImagesProfile(CFStringRef* name) const {
    return Get(grayImages_, name);
}
OSStatus FullColorOptions::setGrayImagesProfile(CFStringRef name) {
    return SetGrayProfile(grayImages_, name);
}
OSStatus FullColorOptions::grayTextAndGraphicsProfile(CFStringRef* name) const {
    return Get(grayTextAndGraphics_, name);
}
OSStatus FullColorOptions::setGrayTextAndGraphicsProfile(CFStringRef name) {
    return SetGrayProfile(grayTextAndGraphics_, name);
}

OSStatus FullColorOptions::imageObjectRendering(SInt32* rendering) const {
    return Get(imageRendering_, rendering);
}
OSStatus FullColorOptions::setImageObjectRendering(SInt32 rendering) {
    return Set(imageRendering_, rendering);
}
OSStatus FullColorOptions::textObjectRendering(SInt32* rendering) const {
    return Get(textRendering_, rendering);
}
OSStatus FullColorOptions::setTextObjectRendering(SInt32 rendering) {
    return Set(textRendering_, rendering);
}
OSStatus FullColorOptions::graphicObjectRendering(SInt32* rendering) const {
    return Get(graphicRendering_, rendering);
}
OSStatus FullColorOptions::setGraphicObjectRendering(SInt32 rendering) {
    return Set(graphicRendering_, rendering);
}

}  // namespace kalmo
