// Lines of text: set in a font, broken to a width, measured, drawn at any angle, with their glyphs.
//
// Offsets count UTF-16 units. Styles and layouts belong to one thread at a time; a layout stays
// quickest on the thread that used it first. A bad argument gives paramErr and changes nothing.
#pragma once

#include "graphics/context.h"
#include "graphics/fonts.h"

/// As a length: up to the end of the text.
inline constexpr UInt32 kATSUToTextEnd = 0xFFFFFFFF;
/// The last line of a paragraph is not stretched. No line is: the factor for it must be 0.
inline constexpr UInt32 kATSLineLastNoJustification = 0x20;

struct ATSURGBAlphaColor {
    Float32 red = 0, green = 0, blue = 0, alpha = 1;
};
struct ATSUAttributes {
    ATSFontRef font = 0;          // 0: the system's sans serif
    Fixed size = 12 * kFixedOne;  // pt, above 0
    Boolean bold = false;         // beyond the font's own weight
    ATSURGBAlphaColor color;
};

struct ATSULayoutControls {
    Fixed flushFactor = 0;          // 0, flush left, is the only one
    Fixed justificationFactor = 0;  // 0, not justified, is the only one
    UInt32 lineOptions = 0;
    CGContextRef context = nullptr;  // what ATSUDrawText draws on; retained up to the next controls
};

/// Where a line's own measures end, in pt from its origin on the baseline; descent counts
/// downwards.
struct ATSUGlyphBounds {
    Fixed width = 0, ascent = 0, descent = 0;
};

struct ATSLayoutRecord {
    UInt16 glyphID = 0;         // in the font of its run; 0 for a character without a glyph
    UInt32 originalOffset = 0;  // of its character, from the beginning of the text
    Fixed realPos = 0;          // pt from the line's origin, along the line
};

#pragma GCC visibility push(default)

/// The caller releases both.
OSStatus ATSUCreateStyle(ATSUStyle* style);
OSStatus ATSUSetAttributes(ATSUStyle style, const ATSUAttributes& attributes);
OSStatus ATSUCreateTextLayout(ATSUTextLayout* layout);

OSStatus ATSUSetLayoutControls(ATSUTextLayout layout, const ATSULayoutControls& controls);
/// Turns every line about its origin; degrees counter-clockwise.
OSStatus ATSUSetLineControls(ATSUTextLayout layout, Fixed rotation);
/// Copies the text. Broken UTF-16 shows as U+FFFD.
OSStatus ATSUSetTextPointerLocation(ATSUTextLayout layout, const UniChar* text, UInt32 count);
/// The whole text is set in the style as it is now; later changes need another call.
OSStatus ATSUSetRunStyle(ATSUTextLayout layout, ATSUStyle style);

/// Breaks a line between words (within one that is too long) and at line feeds; `*breakOffset` is
/// the first character of the next line, or the text's length.
OSStatus ATSUBreakLine(ATSUTextLayout layout, UInt32 lineStart, Fixed width, UInt32* breakOffset);

// The functions below take one line, from its start to the break. Line feeds and tabs within it
// count as spaces.

/// The font's ascent and descent, also where the line's letters do not reach them.
OSStatus ATSUGetGlyphBounds(ATSUTextLayout layout, UInt32 lineStart, UInt32 length,
                            ATSUGlyphBounds* bounds);
/// The ink of the turned line around its origin, in pt, rounded outwards, y DOWNWARDS; empty when
/// the line leaves no ink.
OSStatus ATSUMeasureTextImage(ATSUTextLayout layout, UInt32 lineStart, UInt32 length, Rect* bounds);
/// Draws at the origin (pt, y upwards), in the style's colour, thinned as one. paramErr without a
/// page to draw on.
OSStatus ATSUDrawText(ATSUTextLayout layout, UInt32 lineStart, UInt32 length, Fixed x, Fixed y);
/// The line's glyphs from left to right; borrowed up to the next call with this layout.
OSStatus ATSUDirectGetLayoutDataArrayPtrFromTextLayout(ATSUTextLayout layout, UInt32 lineStart,
                                                       UInt32 length,
                                                       const ATSLayoutRecord** records,
                                                       CFIndex* count);

#pragma GCC visibility pop
