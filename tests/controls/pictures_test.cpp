// Pictures by name.
#include <gtest/gtest.h>

#include <QImage>

#include "controls/pictures.h"
#include "support/private_home.h"

namespace kalmo::test {
namespace {

constexpr char kWideSvg[] =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"60\" height=\"20\"><rect width=\"60\" "
    "height=\"20\"/></svg>";

Owned<CFURLRef> FolderURL(const std::filesystem::path& folder) {
    const auto path = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(folder.string()));
    return Owned<CFURLRef>::Adopt(CFURLCreateWithFileSystemPath(kCFAllocatorDefault, path, true));
}

TEST(ImageCache, PrefersTheDrawingAndLoadsOnce) {
    const auto folder = MakeFolder("pictures");
    WriteFile(folder / "Both.svg", kWideSvg);
    QImage(10, 10, QImage::Format_RGB32).save(QString::fromStdString(folder / "Both.png"));
    QImage(8, 4, QImage::Format_RGB32).save(QString::fromStdString(folder / "Only.png"));
    WriteFile(folder / "Broken.gif", "no picture");
    ImageCache cache(FolderURL(folder));

    const auto widthOf = [&](CFStringRef name) {
        SInt32 width = 0, height = 0;
        if (const PictureRef picture = cache.picture(name))
            GetPictureSize(picture, &width, &height);
        return width;
    };
    EXPECT_EQ(widthOf(CFSTR("Both.png")), 60);
    EXPECT_EQ(widthOf(CFSTR("Only.png")), 8);
    EXPECT_EQ(cache.picture(CFSTR("Broken.gif")), nullptr);

    const PictureRef loaded = cache.picture(CFSTR("Both.png"));
    std::filesystem::remove(folder / "Both.svg");
    EXPECT_EQ(cache.picture(CFSTR("Both.png")), loaded);
}

}  // namespace
}  // namespace kalmo::test
