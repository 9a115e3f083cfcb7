// Pictures: decoded from GIF, PNG, JPEG, TIFF or BMP, or rendered from a page.
//
// Pictures and importers may be made and drawn on any thread, each by one thread at a time.
#pragma once

#include <cstddef>

#include "foundation/url.h"
#include "graphics/geometry.h"
#include "kalmo/statuses.h"

/// The bytes are no picture, a damaged one, or one too large to decode.
inline constexpr OSStatus noCodecErr = -8961;
/// No side of a picture may have more pixels.
inline constexpr std::size_t kLongestImageSide = 16384;

#pragma GCC visibility push(default)

/// Opens a picture file by its content, not its name. fnfErr when it cannot be read, is no plain
/// file or larger than 512 MiB; noCodecErr when it is no picture. The caller releases `*importer`.
/// `flags` are not used.
OSStatus GetGraphicsImporterForFileWithFlags(CFURLRef file, GraphicsImportComponent* importer,
                                             SInt32 flags);
/// The same with the content of a file; `bytes` are copied.
OSStatus GetGraphicsImporterForBytes(const void* bytes, std::size_t count,
                                     GraphicsImportComponent* importer);
/// Width and height in pixels as the picture is to be seen (turned as its EXIF orientation says).
OSStatus GraphicsImportGetNaturalBounds(GraphicsImportComponent importer, Rect* bounds);
/// Decodes to no more pixels than fit into these (a preview's); the image still tells its full
/// width and height. 0 x 0, the default, decodes every pixel.
OSStatus GraphicsImportSetDecodedSize(GraphicsImportComponent importer, std::size_t width,
                                      std::size_t height);
/// noCodecErr when the picture cannot be decoded. `flags` are not used. The caller releases
/// `*image`.
OSStatus GraphicsImportCreateCGImage(GraphicsImportComponent importer, CGImageRef* image,
                                     UInt32 flags);

/// Full size in pixels; 0 for null.
[[nodiscard]] std::size_t CGImageGetWidth(CGImageRef image);
[[nodiscard]] std::size_t CGImageGetHeight(CGImageRef image);

/// Decoded pixels, one 32-bit word each, alpha in the highest byte, then red, green and blue
/// multiplied by it; rows from the top. At most as many as the full size has.
struct CGImagePixels {
    const UInt8* bytes = nullptr;
    std::size_t bytesPerRow = 0, width = 0, height = 0;
};
/// Borrowed for the image's life; no bytes for null.
[[nodiscard]] CGImagePixels CGImageGetPixels(CGImageRef image);

#pragma GCC visibility pop
