// What text layout asks of the font table. Private to the graphics folder.
#pragma once

#include "graphics/cairo_pointers.h"
#include "graphics/fonts.h"

namespace kalmo::graphics {

/// The face's description, without a size; the system's sans serif for no font.
[[nodiscard]] PangoFontPointer DescriptionOf(ATSFontRef font);

}  // namespace kalmo::graphics
