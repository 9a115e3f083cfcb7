#include "graphics/image.h"

#include <algorithm>

#include "foundation/url_private.h"
#include "graphics/image_private.h"

namespace {

using kalmo::foundation::As;
using kalmo::foundation::TypeRecord;
using kalmo::graphics::DecodePicture;
using kalmo::graphics::kImageType;
using kalmo::graphics::PictureSize;
using kalmo::graphics::PixelSize;

const TypeRecord kImporterType{"graphics importer", nullptr, nullptr, nullptr};

constexpr std::size_t kLargestFile = std::size_t{512} << 20;

int Limited(std::size_t side) { return static_cast<int>(std::min(side, kLongestImageSide)); }

const CGImageObject* Image(CGImageRef image) { return As<CGImageObject>(image, kImageType); }

}  // namespace

const TypeRecord kalmo::graphics::kImageType{"image", nullptr, nullptr, nullptr};

struct GraphicsImporterObject final : kalmo::foundation::Object {
    GraphicsImporterObject(std::string content, PixelSize natural)
        : Object(kImporterType), bytes(std::move(content)), size(natural) {}

    std::string bytes;
    PixelSize size, limit;
};

namespace {

OSStatus Open(std::string content, GraphicsImportComponent* importer) {
    const auto size = PictureSize(content);
    if (!size) return noCodecErr;
    *importer = new GraphicsImporterObject(std::move(content), *size);
    return noErr;
}

}  // namespace

OSStatus GetGraphicsImporterForFileWithFlags(CFURLRef file, GraphicsImportComponent* importer,
                                             SInt32) {
    if (!file || !importer) return paramErr;
    const auto path = kalmo::foundation::FilePathOf(file);
    std::string content;
    if (!path || kalmo::foundation::ReadWholeFile(*path, kLargestFile, content) != 0) return fnfErr;
    return Open(std::move(content), importer);
}

OSStatus GetGraphicsImporterForBytes(const void* bytes, std::size_t count,
                                     GraphicsImportComponent* importer) {
    if (!bytes || !importer) return paramErr;
    return Open(std::string(static_cast<const char*>(bytes), count), importer);
}

OSStatus GraphicsImportGetNaturalBounds(GraphicsImportComponent importer, Rect* bounds) {
    const auto* const found = As<GraphicsImporterObject>(importer, kImporterType);
    if (!found || !bounds) return paramErr;
    *bounds = {0, 0, found->size.height, found->size.width};
    return noErr;
}

OSStatus GraphicsImportSetDecodedSize(GraphicsImportComponent importer, std::size_t width,
                                      std::size_t height) {
    auto* const found = As<GraphicsImporterObject>(importer, kImporterType);
    if (!found) return paramErr;
    found->limit = {Limited(width), Limited(height)};
    return noErr;
}

OSStatus GraphicsImportCreateCGImage(GraphicsImportComponent importer, CGImageRef* image, UInt32) {
    const auto* const found = As<GraphicsImporterObject>(importer, kImporterType);
    if (!found || !image) return paramErr;
    auto decoded = DecodePicture(found->bytes, found->limit);
    if (!decoded) return noCodecErr;
    *image = new CGImageObject(std::move(*decoded));
    return noErr;
}

std::size_t CGImageGetWidth(CGImageRef image) {
    const auto* const found = Image(image);
    return found ? static_cast<std::size_t>(found->picture.full.width) : 0;
}

std::size_t CGImageGetHeight(CGImageRef image) {
    const auto* const found = Image(image);
    return found ? static_cast<std::size_t>(found->picture.full.height) : 0;
}

CGImagePixels CGImageGetPixels(CGImageRef image) {
    const auto* const found = Image(image);
    if (!found) return {};
    const auto width = static_cast<std::size_t>(found->picture.pixels.width);
    return {found->picture.bytes.data(), width * 4, width,
            static_cast<std::size_t>(found->picture.pixels.height)};
}
