// The picture of a watermark, read from its file.
#include <sys/stat.h>

#include <algorithm>
#include <cmath>

#include "watermark/watermark_drawing.h"

namespace kalmo {
namespace {

/// False for what is no plain file: a device or a named pipe could keep its reader waiting.
bool Inspect(const std::string& path, SInt64& changed, SInt64& size) {
    struct stat status {};
    // A relative path would lead elsewhere from every folder.
    if (!path.starts_with('/') || stat(path.c_str(), &status) != 0) return false;
    changed = SInt64{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
    size = status.st_size;
    return S_ISREG(status.st_mode);
}

std::size_t Side(SInt32 natural, double share, std::size_t limit) {
    const auto side = static_cast<std::size_t>(std::ceil(natural * std::clamp(share, 0.0, 1.0)));
    return std::max<std::size_t>(limit ? std::min(side, limit) : side, 1);
}

}  // namespace

void WatermarkPictures::limitPixels(std::size_t width, std::size_t height) {
    limit_.width = width;
    limit_.height = height;
}

void WatermarkPictures::limitShare(double share) { limit_.share = share; }

OSStatus WatermarkPictures::get(const std::string& path, CGImageRef* image) {
    if (!image) return paramErr;
    Source source{.path = path, .limit = limit_};
    if (!Inspect(path, source.changed, source.size)) return fnfErr;
    if (source != source_) {
        source_ = std::move(source);
        status_ = decode();
    }
    *image = image_;
    return status_;
}

OSStatus WatermarkPictures::decode() {
    image_ = {};
    const auto url = Owned<CFURLRef>::Adopt(CFURLCreateFromFileSystemRepresentation(
        kCFAllocatorDefault, reinterpret_cast<const UInt8*>(source_.path.data()),
        static_cast<CFIndex>(source_.path.size()), false));
    Owned<GraphicsImportComponent> importer;
    const OSStatus status = GetGraphicsImporterForFileWithFlags(url, importer.adopt(), 0);
    if (status != noErr) return status;
    Rect natural;
    GraphicsImportGetNaturalBounds(importer, &natural);
    GraphicsImportSetDecodedSize(importer, Side(natural.right, limit_.share, limit_.width),
                                 Side(natural.bottom, limit_.share, limit_.height));
    return GraphicsImportCreateCGImage(importer, image_.adopt(), 0);
}

}  // namespace kalmo
