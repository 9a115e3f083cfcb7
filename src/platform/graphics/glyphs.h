// What the glyphs of a laid-out line are and how far their ink reaches. Private to the graphics
// folder.
#pragma once

#include <vector>

#include "graphics/cairo_pointers.h"
#include "graphics/text_layout.h"

namespace kalmo::graphics {

/// In pt around the origin of a line turned by so many radians counter-clockwise; y downwards.
[[nodiscard]] Rect InkBounds(PangoLayoutLine* line, double angle);
/// From left to right, with byte offsets.
[[nodiscard]] std::vector<ATSLayoutRecord> GlyphsOf(PangoLayoutLine* line);

}  // namespace kalmo::graphics
