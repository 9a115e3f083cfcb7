// One page with a watermark on it, as a PDF document.
#pragma once

#include "watermark/memory_pdf.h"
#include "watermark/watermark_drawing.h"

namespace kalmo {

/// US letter, where nobody says anything else.
inline constexpr CGSize kDefaultWatermarkPage{612, 792};

/// White paper for the eye; none for what is laid over or under a document's pages.
enum class PagePaper { white, none };

/// Draws the record, a text thinned to its density, a picture not, and writes the document from the
/// state's first byte. The store is left alone. The status of the drawing, else of the document.
OSStatus DrawWatermarkPage(MemoryConsumerState* state, const CGSize& page, PagePaper paper,
                           _WatermarkData* record, WatermarkPictures* pictures);
/// The document of a page without paper, the record with its glyphs and place; null when nothing is
/// drawn. The caller releases it. Reads and decodes a picture.
[[nodiscard]] CFDataRef CopyWatermarkDrawing(_WatermarkData* record, const CGSize& page);

}  // namespace kalmo
