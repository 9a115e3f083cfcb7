// Pictures: every format, turned, reduced, damaged and hostile ones.
#include <gtest/gtest.h>

#include "support/drawn_page.h"
#include "support/values.h"

namespace kalmo::test {
namespace {

/// Left half red, right half blue.
QImage TwoHalves(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixelColor(x, y, x < width / 2 ? Qt::red : Qt::blue);
    }
    return image;
}

/// A JPEG file with the EXIF orientation "turn a quarter to the right".
std::string Turned(std::string jpeg) {
    const std::string exif(
        "\xFF\xE1\0\x22"
        "Exif\0\0MM\0\x2A\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06"
        "\0\0\0\0\0\0",
        36);
    return jpeg.insert(2, exif);
}

Owned<CGImageRef> Decoded(const std::string& bytes, std::size_t limit = 0) {
    Owned<GraphicsImportComponent> importer;
    Owned<CGImageRef> image;
    if (GetGraphicsImporterForBytes(bytes.data(), bytes.size(), importer.adopt()) != noErr)
        return {};
    GraphicsImportSetDecodedSize(importer, limit, limit);
    return GraphicsImportCreateCGImage(importer, image.adopt(), 0) == noErr ? image
                                                                            : Owned<CGImageRef>();
}

TEST(Image, EveryFormatIsDrawnUprightInItsRectangle) {
    const std::string jpeg = Encoded(TwoHalves(80, 40), "jpeg");
    // Qt writes no GIF: two pixels, red and blue.
    const std::string gif(
        "GIF89a\2\0\1\0\x80\0\0\xFF\0\0\0\0\xFF,\0\0\0\0\2\0\1\0\0\2\2\x44\x0A\0;", 36);
    const std::tuple<const char*, std::string, std::size_t, std::size_t, std::size_t> kRows[] = {
        {"png", Encoded(TwoHalves(80, 40), "png"), 80, 40, 0},
        {"jpeg", jpeg, 80, 40, 0},
        {"tiff", Encoded(TwoHalves(80, 40), "tiff"), 80, 40, 0},
        {"gif", gif, 2, 1, 0},
        {"reduced", jpeg, 80, 40, 20},
        {"larger than asked for", Encoded(TwoHalves(80, 40), "png"), 80, 40, 1000},
    };
    for (const auto& [why, bytes, width, height, limit] : kRows) {
        SCOPED_TRACE(why);
        const auto image = Decoded(bytes, limit);
        ASSERT_TRUE(image);
        EXPECT_EQ(CGImageGetWidth(image), width);
        EXPECT_EQ(CGImageGetHeight(image), height);
        EXPECT_EQ(CGImageGetPixels(image).width, limit == 20 ? 20 : width);
        const QImage page = DrawnPage(CGRectMake(0, 0, 100, 100), [&](CGContextRef context) {
            CGContextSetAlpha(context, 0.5);
            CGContextDrawImage(context, CGRectMake(10, 20, 80, 40), image);
        });
        EXPECT_NEAR(InkOf(page).origin.y, 20, 1.01);
        EXPECT_NEAR(InkOf(page).size.width, 80, 2);
        EXPECT_NEAR(page.pixelColor(20, 60).green(), 127, 6);
        EXPECT_GT(page.pixelColor(80, 60).blue(), 245);
    }
}

TEST(Image, IsTurnedAsItsFileSays) {
    for (const std::size_t limit : {0, 20}) {
        const auto image = Decoded(Turned(Encoded(TwoHalves(80, 40), "jpeg")), limit);
        ASSERT_TRUE(image);
        EXPECT_EQ(CGImageGetWidth(image), 40u);
        const QImage seen = PictureOf(image);
        EXPECT_EQ(seen.height(), limit ? 20 : 80);
        EXPECT_GT(qRed(seen.pixel(seen.width() / 2, 1)), 200) << "what was left is now on top";
        EXPECT_GT(qBlue(seen.pixel(seen.width() / 2, seen.height() - 2)), 200);
    }
}

TEST(Image, HostileFilesAreRefused) {
    const std::string png = Encoded(TwoHalves(80, 40), "png");
    // A bitmap's sizes stand in its header, little end first, guarded by no checksum.
    const std::string bitmap = Encoded(TwoHalves(80, 40), "bmp");
    const std::string photograph = Encoded(TwoHalves(80, 40), "jpeg");
    const auto sized = [&](const char* sides) {
        return std::string(bitmap).replace(18, 8, std::string(sides, 8));
    };
    const std::pair<const char*, std::string> kRows[] = {
        {"text", "no picture at all"},
        {"a drawing", "<svg xmlns='http://www.w3.org/2000/svg'/>"},
        {"vast", sized("\xFF\xFF\xFF\x7F\xFF\xFF\xFF\x7F")},
        {"a gigabyte of pixels", sized("\0\x3F\0\0\0\x3F\0\0")},
        {"cut off", png.substr(0, 60)},
        {"a photograph cut off", photograph.substr(0, photograph.size() - 40)},
    };
    for (const auto& [why, bytes] : kRows) EXPECT_FALSE(Decoded(bytes)) << why;
    Owned<GraphicsImportComponent> importer;
    EXPECT_EQ(GetGraphicsImporterForFileWithFlags(FileURL("/nowhere/x.png"), importer.adopt(), 0),
              fnfErr);
}

}  // namespace
}  // namespace kalmo::test
