// The picture object and its decoder's interface. Private to the platform library.
#pragma once

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
    std::vector<UInt8> bytes;  // 4 * pixels.width to the row
    std::string jpeg;  // the same pixels as a JPEG file, when they came from one; else empty
};

/// The size as seen; nothing when the bytes are no picture, or one with too long a side.
[[nodiscard]] std::optional<PixelSize> PictureSize(const std::string& bytes);
/// Nothing when it cannot be decoded. `limit` 0 x 0 is every pixel.
[[nodiscard]] std::optional<DecodedPicture> DecodePicture(const std::string& bytes,
                                                          PixelSize limit);

}  // namespace kalmo::graphics

struct CGImageObject final : kalmo::foundation::Object {
    explicit CGImageObject(kalmo::graphics::DecodedPicture decoded)
        : Object(kalmo::graphics::kImageType), picture(std::move(decoded)) {}

    kalmo::graphics::DecodedPicture picture;
};
