#include "graphics/text_layout.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "graphics/context_private.h"
#include "graphics/fonts_private.h"
#include "graphics/glyphs.h"
#include "graphics/paragraph.h"

namespace {

using kalmo::foundation::As;
using kalmo::foundation::Object;
using kalmo::foundation::TypeRecord;
using kalmo::graphics::Paragraph;
using kalmo::graphics::ParagraphLine;

const TypeRecord kStyleType{"text style", nullptr, nullptr, nullptr};
const TypeRecord kLayoutType{"text layout", nullptr, nullptr, nullptr};

double Radians(Fixed degrees) { return FixedToFloat(degrees) * std::numbers::pi / 180; }

kalmo::graphics::PangoFontPointer FontOf(const ATSUAttributes& attributes) {
    auto font = kalmo::graphics::DescriptionOf(attributes.font);
    const double size = FixedToFloat(attributes.size) * PANGO_SCALE;
    pango_font_description_set_absolute_size(font.get(), size);
    if (attributes.bold) pango_font_description_set_weight(font.get(), PANGO_WEIGHT_BOLD);
    return font;
}

}  // namespace

struct ATSUStyleObject final : Object {
    ATSUStyleObject() : Object(kStyleType) {}
    ATSUAttributes attributes;
};

struct ATSUTextLayoutObject final : Object {
    ATSUTextLayoutObject() : Object(kLayoutType) { paragraph.setFont(FontOf({})); }

    Paragraph paragraph;
    ATSURGBAlphaColor color;
    Fixed rotation = 0;
    Owned<CGContextRef> context;
    std::vector<ATSLayoutRecord> records;
};

namespace {

ATSUTextLayoutObject* Layout(ATSUTextLayout layout) {
    return As<ATSUTextLayoutObject>(layout, kLayoutType);
}

/// Null when the layout has no such line.
const ParagraphLine* LineOf(ATSUTextLayoutObject* layout, UInt32 start, UInt32 length) {
    if (!layout || start > layout->paragraph.length()) return nullptr;
    const std::size_t rest = layout->paragraph.length() - start;
    if (length != kATSUToTextEnd && length > rest) return nullptr;
    return &layout->paragraph.lineAt(start, start + std::min<std::size_t>(length, rest));
}

}  // namespace

OSStatus ATSUCreateStyle(ATSUStyle* style) {
    if (!style) return paramErr;
    *style = new ATSUStyleObject;
    return noErr;
}

OSStatus ATSUSetAttributes(ATSUStyle style, const ATSUAttributes& attributes) {
    auto* const found = As<ATSUStyleObject>(style, kStyleType);
    if (!found || attributes.size <= 0) return paramErr;
    found->attributes = attributes;
    return noErr;
}

OSStatus ATSUCreateTextLayout(ATSUTextLayout* layout) {
    if (!layout) return paramErr;
    *layout = new ATSUTextLayoutObject;
    return noErr;
}

OSStatus ATSUSetLayoutControls(ATSUTextLayout layout, const ATSULayoutControls& controls) {
    auto* const found = Layout(layout);
    if (!found || controls.flushFactor != 0 || controls.justificationFactor != 0) return paramErr;
    found->context = Owned<CGContextRef>::Retain(controls.context);
    return noErr;
}

OSStatus ATSUSetLineControls(ATSUTextLayout layout, Fixed rotation) {
    auto* const found = Layout(layout);
    if (!found) return paramErr;
    found->rotation = rotation;
    return noErr;
}

OSStatus ATSUSetTextPointerLocation(ATSUTextLayout layout, const UniChar* text, UInt32 count) {
    auto* const found = Layout(layout);
    if (!found || (!text && count)) return paramErr;
    found->paragraph.setText(text ? std::u16string(text, count) : std::u16string());
    return noErr;
}

OSStatus ATSUSetRunStyle(ATSUTextLayout layout, ATSUStyle style) {
    auto* const found = Layout(layout);
    const auto* const look = As<ATSUStyleObject>(style, kStyleType);
    if (!found || !look) return paramErr;
    found->paragraph.setFont(FontOf(look->attributes));
    found->color = look->attributes.color;
    return noErr;
}

OSStatus ATSUBreakLine(ATSUTextLayout layout, UInt32 lineStart, Fixed width, UInt32* breakOffset) {
    auto* const found = Layout(layout);
    if (!found || !breakOffset || lineStart > found->paragraph.length()) return paramErr;
    const bool isAtEnd = lineStart == found->paragraph.length();
    *breakOffset =
        isAtEnd
            ? lineStart
            : static_cast<UInt32>(found->paragraph.breakLine(lineStart, FixedToFloat(width)).next);
    return noErr;
}

OSStatus ATSUGetGlyphBounds(ATSUTextLayout layout, UInt32 lineStart, UInt32 length,
                            ATSUGlyphBounds* bounds) {
    const ParagraphLine* const line = LineOf(Layout(layout), lineStart, length);
    if (!line || !bounds) return paramErr;
    *bounds = {FloatToFixed(line->width), FloatToFixed(line->ascent), FloatToFixed(line->descent)};
    return noErr;
}

OSStatus ATSUMeasureTextImage(ATSUTextLayout layout, UInt32 lineStart, UInt32 length,
                              Rect* bounds) {
    auto* const found = Layout(layout);
    const ParagraphLine* const line = LineOf(found, lineStart, length);
    if (!line || !bounds) return paramErr;
    *bounds = kalmo::graphics::InkBounds(line->line, Radians(found->rotation));
    return noErr;
}

OSStatus ATSUDrawText(ATSUTextLayout layout, UInt32 lineStart, UInt32 length, Fixed x, Fixed y) {
    auto* const found = Layout(layout);
    const ParagraphLine* const line = LineOf(found, lineStart, length);
    auto* const page = found ? kalmo::graphics::OpenPage(found->context) : nullptr;
    if (!line || !page) return paramErr;
    cairo_t* const cairo = page->cairo.get();
    const ATSURGBAlphaColor& color = found->color;
    // As one: where letters touch, as joined ones do, they are no darker.
    CGContextSaveGState(page);
    CGContextSetAlpha(page, page->state().alpha * color.alpha);
    const bool isThinned = page->state().alpha < 1;
    if (isThinned) CGContextBeginTransparencyLayer(page, nullptr);
    page->use({color.red, color.green, color.blue, 1});
    cairo_translate(cairo, FixedToFloat(x), FixedToFloat(y));
    // Letters stand upright where y grows downwards.
    cairo_scale(cairo, 1, -1);
    cairo_rotate(cairo, -Radians(found->rotation));
    cairo_move_to(cairo, 0, 0);
    pango_cairo_show_layout_line(cairo, line->line);
    cairo_new_path(cairo);
    if (isThinned) CGContextEndTransparencyLayer(page);
    CGContextRestoreGState(page);
    return noErr;
}

OSStatus ATSUDirectGetLayoutDataArrayPtrFromTextLayout(ATSUTextLayout layout, UInt32 lineStart,
                                                       UInt32 length,
                                                       const ATSLayoutRecord** records,
                                                       CFIndex* count) {
    auto* const found = Layout(layout);
    const ParagraphLine* const line = LineOf(found, lineStart, length);
    if (!line || !records || !count) return paramErr;
    found->records = kalmo::graphics::GlyphsOf(line->line);
    for (ATSLayoutRecord& record : found->records) {
        record.originalOffset = static_cast<UInt32>(
            found->paragraph.offsetOfByte(static_cast<int>(record.originalOffset)));
    }
    *records = found->records.data();
    *count = static_cast<CFIndex>(found->records.size());
    return noErr;
}
