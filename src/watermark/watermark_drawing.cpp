#include "watermark/watermark_drawing.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "graphics/text_layout.h"
#include "watermark/watermark_store.h"

namespace kalmo {
namespace {

constexpr double kPointsPerInch = 72;

/// The numbers come from files that anybody may have written.
ATSUAttributes LookOf(const _WatermarkData& record) {
    const SInt32 size = std::clamp(record.fontSize, SInt32{1}, kLargestWatermarkFont);
    return {.font = ATSFontFindFromPostScriptName(CopyWatermarkText(record.fontName), 0),
            .size = IntToFixed(size),
            .color = {record.wellColorRed, record.wellColorGreen, record.wellColorBlue,
                      record.wellColorAlpha}};
}

/// Null when it cannot be made.
Owned<ATSUTextLayout> LayoutOf(CGContextRef context, const _WatermarkData& record) {
    Owned<ATSUStyle> style;
    Owned<ATSUTextLayout> layout;
    const auto text = CopyWatermarkText(record.textString);
    std::u16string units(static_cast<std::size_t>(CFStringGetLength(text)), u'\0');
    CFStringGetCharacters(text, {0, CFStringGetLength(text)}, units.data());
    const bool made =
        ATSUCreateStyle(style.adopt()) == noErr && ATSUCreateTextLayout(layout.adopt()) == noErr &&
        ATSUSetLayoutControls(
            layout, {.lineOptions = kATSLineLastNoJustification, .context = context}) == noErr &&
        ATSUSetAttributes(style, LookOf(record)) == noErr &&
        ATSUSetTextPointerLocation(layout, units.data(), static_cast<UInt32>(units.size())) ==
            noErr &&
        ATSUSetLineControls(layout, IntToFixed(record.angle % 360)) == noErr &&
        ATSUSetRunStyle(layout, style) == noErr;
    return made ? layout : Owned<ATSUTextLayout>();
}

/// From the page's middle, in points.
double Offset(float inches) { return std::isfinite(inches) ? inches * kPointsPerInch : 0; }

struct TextOrigin {
    Fixed x, y;
};

/// Where the line begins so that the centre of its ink, to whole points, is the page's, moved by
/// the offsets. Ink counts downwards, the page upwards.
TextOrigin OriginOf(const CGRect& page, const _WatermarkData& record, const Rect& ink) {
    const Fixed middleX = FloatToFixed(CGRectGetMidX(page) + Offset(record.xOffset));
    const Fixed middleY = FloatToFixed(CGRectGetMidY(page) + Offset(record.yOffset));
    return {FixedAdd(middleX, IntToFixed(-((ink.left + ink.right) / 2))),
            FixedAdd(middleY, IntToFixed((ink.top + ink.bottom) / 2))};
}

/// False when there are none to be had.
bool KeepGlyphs(_WatermarkData& record, ATSUTextLayout layout) {
    const ATSLayoutRecord* glyphs = nullptr;
    CFIndex count = 0;
    if (ATSUDirectGetLayoutDataArrayPtrFromTextLayout(layout, 0, kATSUToTextEnd, &glyphs, &count) !=
        noErr)
        return false;
    std::vector<UInt16> numbers;
    std::transform(glyphs, glyphs + count, std::back_inserter(numbers),
                   [](const ATSLayoutRecord& glyph) { return glyph.glyphID; });
    SetWatermarkGlyphs(record, numbers);
    return true;
}

/// Whether it was drawn and is worth keeping in the store.
bool DrawText(CGContextRef context, const CGRect& page, _WatermarkData& record) {
    const auto layout = LayoutOf(context, record);
    Rect ink;
    if (ATSUMeasureTextImage(layout, 0, kATSUToTextEnd, &ink) != noErr) return false;
    if (ink.left == ink.right || ink.top == ink.bottom) return false;
    const TextOrigin origin = OriginOf(page, record, ink);
    if (ATSUDrawText(layout, 0, kATSUToTextEnd, origin.x, origin.y) != noErr) return false;
    if (!KeepGlyphs(record, layout)) return false;
    record.xPos = FixedToFloat(origin.x);
    record.yPos = FixedToFloat(origin.y);
    record.textMode = 1;
    return true;
}

OSStatus DrawPicture(CGContextRef context, const CGRect& page, const _WatermarkData& record,
                     WatermarkPictures& pictures) {
    CGImageRef image = nullptr;
    const OSStatus status =
        pictures.get(CFStringToUTF8(CopyWatermarkText(record.filePath)), &image);
    if (status != noErr) return status;
    const double scale = std::clamp(record.scale, SInt32{0}, kLargestWatermarkScale) / 100.0;
    const double width = static_cast<double>(CGImageGetWidth(image)) * scale;
    const double height = static_cast<double>(CGImageGetHeight(image)) * scale;
    CGContextDrawImage(context,
                       CGRectMake(CGRectGetMidX(page) - width / 2, CGRectGetMidY(page) - height / 2,
                                  width, height),
                       image);
    return noErr;
}

}  // namespace

OSStatus DrawWatermarkOnly(CGContextRef context, const CGRect& page, _WatermarkData* record,
                           WatermarkPictures* pictures) {
    if (!record) return noErr;
    if (record->textString[0]) DrawText(context, page, *record);
    if (record->textString[0] || !record->filename[0]) return noErr;
    WatermarkPictures own;
    return DrawPicture(context, page, *record, pictures ? *pictures : own);
}

OSStatus DrawWatermark(CGContextRef context, const CGRect& page, _WatermarkData* record,
                       WatermarkPictures* pictures) {
    const bool isText = record && record->textString[0];
    if (!isText) return DrawWatermarkOnly(context, page, record, pictures);
    // Glyphs and place lie in the store for printing. Who draws again and again does not wait.
    if (DrawText(context, page, *record))
        saveWatermarkData(kWatermarkStore, *record, WatermarkSave::passing);
    return noErr;
}

}  // namespace kalmo
