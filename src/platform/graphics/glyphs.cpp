#include "graphics/glyphs.h"

#include <pango/pangocairo.h>
#include <pango/pangofc-font.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace kalmo::graphics {
namespace {

double Points(int units) { return static_cast<double>(units) / PANGO_SCALE; }

std::vector<const PangoGlyphItem*> RunsOf(PangoLayoutLine* line) {
    std::vector<const PangoGlyphItem*> runs;
    for (const GSList* entry = line->runs; entry; entry = entry->next) {
        runs.push_back(static_cast<const PangoGlyphItem*>(entry->data));
    }
    return runs;
}

/// Colour glyphs are pictures: they have no outline to measure.
bool IsColored(const PangoGlyphItem* run) {
    PangoFont* const font = run->item->analysis.font;
    if (!font || !PANGO_IS_FC_FONT(font)) return false;
    FcBool colored = FcFalse;
    FcPattern* const pattern = pango_fc_font_get_pattern(PANGO_FC_FONT(font));
    return FcPatternGetBool(pattern, FC_COLOR, 0, &colored) == FcResultMatch && colored;
}

/// The pictures' rectangles join the outlines, so that one measurement covers both.
void AddColoredRuns(cairo_t* cairo, PangoLayoutLine* line) {
    int position = 0;
    for (const PangoGlyphItem* const run : RunsOf(line)) {
        PangoRectangle ink, logical;
        pango_glyph_string_extents(run->glyphs, run->item->analysis.font, &ink, &logical);
        if (IsColored(run) && ink.width > 0 && ink.height > 0) {
            cairo_rectangle(cairo, Points(position + ink.x), Points(ink.y), Points(ink.width),
                            Points(ink.height));
        }
        position += logical.width;
    }
}

SInt32 Whole(double value) {
    // Far beyond any page, and still safe to add up.
    constexpr double kFarthest = 1 << 23;
    return static_cast<SInt32>(std::clamp(value, -kFarthest, kFarthest));
}

}  // namespace

Rect InkBounds(PangoLayoutLine* line, double angle) {
    // Without bounds: of a surface with an area, glyphs far outside are left out of the path.
    const SurfacePointer surface(cairo_recording_surface_create(CAIRO_CONTENT_ALPHA, nullptr));
    const CairoPointer cairo(cairo_create(surface.get()));
    cairo_rotate(cairo.get(), -angle);
    cairo_move_to(cairo.get(), 0, 0);
    pango_cairo_layout_line_path(cairo.get(), line);
    AddColoredRuns(cairo.get(), line);
    // The outline itself is turned: a turned rectangle around it would have another centre.
    cairo_identity_matrix(cairo.get());
    double left = 0, top = 0, right = 0, bottom = 0;
    cairo_path_extents(cairo.get(), &left, &top, &right, &bottom);
    return {Whole(std::floor(top)), Whole(std::floor(left)), Whole(std::ceil(bottom)),
            Whole(std::ceil(right))};
}

std::vector<ATSLayoutRecord> GlyphsOf(PangoLayoutLine* line) {
    std::vector<ATSLayoutRecord> records;
    int position = 0;
    for (const PangoGlyphItem* const run : RunsOf(line)) {
        for (int i = 0; i < run->glyphs->num_glyphs; ++i) {
            const PangoGlyphInfo& glyph = run->glyphs->glyphs[i];
            const bool isKnown = glyph.glyph <= std::numeric_limits<UInt16>::max();
            const int offset = run->item->offset + run->glyphs->log_clusters[i];
            if (glyph.glyph != PANGO_GLYPH_EMPTY) {
                records.push_back({isKnown ? static_cast<UInt16>(glyph.glyph) : UInt16{0},
                                   static_cast<UInt32>(offset),
                                   FloatToFixed(Points(position + glyph.geometry.x_offset))});
            }
            position += glyph.geometry.width;
        }
    }
    return records;
}

}  // namespace kalmo::graphics
