#include "controls/pictures.h"

#include <memory>

#include "shell/base/plugin_bundle.h"

namespace kalmo {
namespace {

std::unique_ptr<ImageCache> bundleImages;

/// The name with the ending of a drawing.
std::string DrawnSibling(const std::string& name) {
    return name.substr(0, name.rfind('.')) + ".svg";
}

PictureRef LoadPicture(CFURLRef folder, const std::string& name) {
    const auto component = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(name));
    const auto url = Owned<CFURLRef>::Adopt(
        CFURLCreateCopyAppendingPathComponent(kCFAllocatorDefault, folder, component, false));
    return url ? CreatePictureFromURL(url) : nullptr;
}

Rect DrawnArea(EventRef drawEvent) {
    Rect bounds;
    GetControlBounds(GetEventControl(drawEvent), &bounds);
    return {.top = 0,
            .left = 0,
            .bottom = bounds.bottom - bounds.top,
            .right = bounds.right - bounds.left};
}

}  // namespace

ImageCache::ImageCache(CFURLRef folder) : folder_(Owned<CFURLRef>::Retain(folder)) {}

ImageCache::~ImageCache() {
    for (const auto& [name, picture] : pictures_)
        if (picture) DisposePicture(picture);
}

PictureRef ImageCache::picture(CFStringRef fileName) {
    if (!folder_ || !fileName) return nullptr;
    const std::string name = CFStringToUTF8(fileName);
    if (const auto known = pictures_.find(name); known != pictures_.end()) return known->second;
    PictureRef loaded = LoadPicture(folder_, DrawnSibling(name));
    if (!loaded) loaded = LoadPicture(folder_, name);
    return pictures_[name] = loaded;
}

ImageCache* BundleImages() {
    if (bundleImages) return bundleImages.get();
    const CFBundleRef bundle = GetPDEBundle();
    if (!bundle) return nullptr;
    const auto folder = Owned<CFURLRef>::Adopt(CFBundleCopyResourcesDirectoryURL(bundle));
    bundleImages = std::make_unique<ImageCache>(folder);
    return bundleImages.get();
}

void SetButtonPicture(ControlRef button, const char* fileName) {
    if (ImageCache* const images = BundleImages())
        SetControlPicture(button, images->picture(CFStringMakeConstant(fileName)));
}

OSStatus DrawImage(EventRef drawEvent, CFStringRef fileName) {
    ImageCache* images = BundleImages();
    const PictureRef picture = images ? images->picture(fileName) : nullptr;
    if (!picture) return fnfErr;
    return DrawPictureInRect(GetEventDrawing(drawEvent), picture, DrawnArea(drawEvent));
}

void ReleaseBundleImages() { bundleImages.reset(); }

}  // namespace kalmo
