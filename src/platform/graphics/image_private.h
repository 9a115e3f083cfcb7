// The picture object and its decoder's interface. Private to the platform library.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "foundation/object_private.h"
#include "graphics/image.h"

namespace kalmo::graphics {

extern const kalmo::foundation::TypeRecord kImageType;

struct PixelSize {
    int width = 0, height = 0;
};

/// What a decoder or a page reader hands over.
struct DecodedPicture {
    PixelSize full, pixels;
    std::vector<UInt8> bytes;   // 4 * pixels.width to the row
    bool isPhotograph = false;  // from a JPEG file: nothing of it can be seen through
};

/// Pixels of a picture, the first row on top; right and bottom lie just outside.
struct PicturePart {
    int left = 0, top = 0, right = 0, bottom = 0;

    [[nodiscard]] int width() const { return right - left; }
    [[nodiscard]] int height() const { return bottom - top; }
    bool operator==(const PicturePart&) const = default;
};

/// A part of a photograph as a JPEG file.
struct PartFile {
    PicturePart part;
    std::shared_ptr<const std::string> bytes;
};

/// The size as seen; nothing when the bytes are no picture, or one with too long a side.
[[nodiscard]] std::optional<PixelSize> PictureSize(const std::string& bytes);
/// Nothing when it cannot be decoded. `limit` 0 x 0 is every pixel.
[[nodiscard]] std::optional<DecodedPicture> DecodePicture(const std::string& bytes,
                                                          PixelSize limit);
/// The pixels as a JPEG file: a photograph stays one in a PDF file, where raw pixels would be ten
/// times as large. Empty when there is no memory.
[[nodiscard]] std::string JpegOf(const UInt8* bytes, std::size_t bytesPerRow, PixelSize size);

}  // namespace kalmo::graphics

struct CGImageObject final : kalmo::foundation::Object {
    explicit CGImageObject(kalmo::graphics::DecodedPicture decoded)
        : Object(kalmo::graphics::kImageType), picture(std::move(decoded)) {}

    kalmo::graphics::DecodedPicture picture;
    mutable kalmo::graphics::PartFile lastDrawn;  // a preview draws the same part again and again
};
