// Drawing a watermark, centred on a page.
//
// A text in its well color, turned by its angle and moved by its offsets; a picture in its own
// colors, upright in the middle, scaled. How far both are thinned is the caller's business: the
// alpha of the context.
//
// Any thread; one context, record and set of pictures by one thread at a time.
#pragma once

#include <string>

#include "graphics/context.h"
#include "watermark/watermark_data.h"

namespace kalmo {

/// The picture last drawn, kept decoded for the next drawing.
class WatermarkPictures final {
public:
    /// No picture is decoded to more pixels than these; 0 x 0 (the default): to all it has.
    void limitPixels(std::size_t width, std::size_t height);
    /// Decoded anew when the file, its content or the limit is another. Lent up to the next call.
    OSStatus get(const std::string& path, CGImageRef* image);

private:
    struct Source {
        std::string path;
        SInt64 changed = 0, size = 0;  // ns since 1970; bytes
        std::size_t width = 0, height = 0;
        bool operator==(const Source&) const = default;
    };

    std::size_t width_ = 0, height_ = 0;
    Source source_;
    OSStatus status_ = noErr;
    Owned<CGImageRef> image_;
};

/// Draws and keeps the laid-out glyphs and the text's origin in the record (with its text mode).
/// noErr also for a record with nothing to draw; fnfErr or noCodecErr, with nothing drawn, when the
/// picture cannot be read. `pictures` null: decoded for this drawing alone.
OSStatus DrawWatermarkOnly(CGContextRef context, const CGRect& page, _WatermarkData* record,
                           WatermarkPictures* pictures);
/// The same, and saves a text under its name in the store of the print watermarks, whichever store
/// it came from: there its glyphs and place lie ready for printing.
OSStatus DrawWatermark(CGContextRef context, const CGRect& page, _WatermarkData* record,
                       WatermarkPictures* pictures = nullptr);

}  // namespace kalmo
