// One watermark: a line of text or a picture file, drawn once, centred on a page.
#pragma once

#include <span>
#include <type_traits>

#include "foundation/collections.h"

namespace kalmo {

/// Texts are UTF-8 and end in NUL. Copied by value, except that one holder owns the glyphs: a
/// record that is kept somewhere lies in a WatermarkHolder.
struct _WatermarkData {
    /// Not empty: a text watermark.
    char textString[512];
    /// The picture's name as shown, and its full path.
    char filename[512];
    char filePath[8192];
    /// PostScript name.
    char fontName[512];
    /// Of the text from the page's centre, in inches, to the right and upwards.
    float xOffset, yOffset;
    /// 0 to 1.
    float fontColorRed, fontColorGreen, fontColorBlue, fontColorAlpha;
    /// Of the editor's well; the text is drawn in it.
    float wellColorRed, wellColorGreen, wellColorBlue, wellColorAlpha;
    /// Of the text, degrees counter-clockwise.
    SInt32 angle;
    /// Opacity of the text, percent.
    SInt32 density;
    /// Of the picture, percent of its pixel size.
    SInt32 scale;
    /// Shown by the editor: 0 tenths of an inch, 1 millimetres.
    SInt32 units;
    /// Points.
    SInt32 fontSize;
    /// Whether its name is its text (else its file name). Not stored.
    UInt32 textMode;
    /// Points; bounds the offsets in the editor. Not stored.
    double pageHeight, pageWidth;
    /// Where the text was last drawn, in points.
    double xPos, yPos;
    /// Glyph IDs of the text as last laid out, null when there are none.
    UInt16* glyphs;
    SInt32 glyphCount;
};
static_assert(std::is_trivially_copyable_v<_WatermarkData>);

/// A record that starts zeroed and frees its glyphs.
class WatermarkHolder final {
public:
    WatermarkHolder() = default;
    WatermarkHolder(const WatermarkHolder&) = delete;
    WatermarkHolder& operator=(const WatermarkHolder&) = delete;
    ~WatermarkHolder();

    [[nodiscard]] _WatermarkData* get() { return &record_; }
    _WatermarkData* operator->() { return &record_; }
    _WatermarkData& operator*() { return record_; }

private:
    _WatermarkData record_{};
};

/// Frees the glyphs held, then keeps a copy of those given (none when empty).
void SetWatermarkGlyphs(_WatermarkData& record, std::span<const UInt16> glyphs);
/// Frees the glyphs held, then zeroes the whole record.
void ClearWatermark(_WatermarkData& record);
/// A new text watermark without a text; `units` are those that the editor shows. Glyphs held are
/// freed.
void setDefaultValues(_WatermarkData& record, SInt32 units);

/// Copies as many whole characters as fit with their end, and zeroes the rest of the field.
void SetWatermarkText(std::span<char> field, CFStringRef text);
/// Never null; broken UTF-8 is mended.
[[nodiscard]] Owned<CFStringRef> CopyWatermarkText(std::span<const char> field);
/// The name under which it is stored: its text or its file name. Never null.
[[nodiscard]] Owned<CFStringRef> CopyWatermarkName(const _WatermarkData& record);

/// The entry of a store file: a key for each stored field, named like it. The caller releases it.
[[nodiscard]] CFMutableDictionaryRef CreateWatermarkEntry(const _WatermarkData& record);
/// Sets the fields whose keys are there with a value of their kind; the others stay. Glyphs need
/// "glyphCount" and just so many in "glyphs".
void ReadWatermarkEntry(_WatermarkData& record, CFDictionaryRef entry);

}  // namespace kalmo
