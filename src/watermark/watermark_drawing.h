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

/// Sizes beyond these, in points and percent, are drawn like these: more than any sheet shows.
inline constexpr SInt32 kLargestWatermarkFont = 2000;
inline constexpr SInt32 kLargestWatermarkScale = 100000;

/// The picture last drawn, kept decoded for the next drawing.
class WatermarkPictures final {
public:
    /// No picture is decoded to more pixels than these; 0 x 0 (the default): to all it has.
    void limitPixels(std::size_t width, std::size_t height);
    /// Of each side's pixels this share is decoded; all of them from 1 (the default) on.
    void limitShare(double share);
    /// Decoded anew when the file, its content or a limit is another. Lent up to the next call.
    /// fnfErr unless the path is absolute and leads to a plain file; noCodecErr for no picture.
    OSStatus get(const std::string& path, CGImageRef* image);

private:
    struct Limit {
        std::size_t width = 0, height = 0;
        double share = 1;
        bool operator==(const Limit&) const = default;
    };
    struct Source {
        std::string path;
        SInt64 changed = 0, size = 0;  // ns since 1970; bytes
        Limit limit;
        bool operator==(const Source&) const = default;
    };
    OSStatus decode();

    Limit limit_;
    Source source_;  // an empty path: nothing was asked for yet
    OSStatus status_ = noErr;
    Owned<CGImageRef> image_;
};

/// Draws and keeps the laid-out glyphs and the text's origin in the record (with its text mode).
/// noErr also for a record with nothing to draw; fnfErr or noCodecErr, with nothing drawn, when the
/// picture cannot be read. `pictures` null: decoded for this drawing alone.
OSStatus DrawWatermarkOnly(CGContextRef context, const CGRect& page, _WatermarkData* record,
                           WatermarkPictures* pictures);
/// The same, and saves a text under its name in the store of the print watermarks, whichever store
/// it came from: there its glyphs and place lie ready for printing. The previews of the print
/// watermarks draw only, and save where the user's changes are saved.
OSStatus DrawWatermark(CGContextRef context, const CGRect& page, _WatermarkData* record,
                       WatermarkPictures* pictures = nullptr);

}  // namespace kalmo
