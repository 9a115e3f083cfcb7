// Pictures of the bundle: loaded once, drawn in a control's draw event.
#pragma once

#include <string>
#include <unordered_map>

#include "foundation/url.h"
#include "toolbox/pictures.h"

namespace kalmo {

/// Pictures of one folder by file name. Beside "X.gif", "X.png" or "X.icns" the folder may hold
/// "X.svg", which is then what is loaded; a name with neither is missing.
class ImageCache final {
public:
    explicit ImageCache(CFURLRef folder);
    ~ImageCache();
    ImageCache(const ImageCache&) = delete;
    ImageCache& operator=(const ImageCache&) = delete;

    /// Borrowed until the cache goes; null when missing.
    [[nodiscard]] PictureRef picture(CFStringRef fileName);

private:
    Owned<CFURLRef> folder_;
    std::unordered_map<std::string, PictureRef> pictures_;
};

/// The one cache over the plug-in's Resources folder, made on first use: the shell's buttons and
/// all panels' pictures come from it. Null without a bundle.
[[nodiscard]] ImageCache* BundleImages();
/// Puts the bundle's picture on a button.
void SetButtonPicture(ControlRef button, const char* fileName);
/// Draws the bundle's picture in the control of a draw event, to fit. fnfErr when it is missing.
OSStatus DrawImage(EventRef drawEvent, CFStringRef fileName);
/// Frees the cache with all pictures.
void ReleaseBundleImages();

}  // namespace kalmo
