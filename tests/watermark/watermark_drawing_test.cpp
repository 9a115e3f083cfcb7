#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cfloat>
#include <chrono>
#include <climits>

#include "support/drawn_page.h"
#include "watermark/fresh_store.h"
#include "watermark/watermark_page.h"
#include "watermark/watermark_store.h"

namespace kalmo::test {
namespace {

constexpr double kScale = 2;
constexpr CGRect kLetter{{}, kDefaultWatermarkPage};

/// The page with the record at two pixels to the point.
QImage PageWith(_WatermarkData& record, OSStatus expected = noErr) {
    MemoryConsumerState state;
    CreateMemoryConsumer(1, &state);
    EXPECT_EQ(DrawWatermarkPage(&state, kDefaultWatermarkPage, PagePaper::white, &record, nullptr),
              expected);
    const auto image = Owned<CGImageRef>::Adopt(CGPDFDocumentCreatePageImage(
        CreateDocument(state), 1, std::size_t{612} * 2, std::size_t{792} * 2));
    MemoryConsumerReleaseInfo(&state);
    return PictureOf(image).copy();
}

void SetText(_WatermarkData& record, const char* text) {
    setDefaultValues(record, 0);
    std::strcpy(record.textString, text);
}

/// A picture watermark of a new PNG file, all blue.
void SetPicture(_WatermarkData& record, int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    const auto file = MakeFolder("pictures") / "picture.png";
    picture.save(QString::fromStdString(file));
    SetText(record, "");
    std::strcpy(record.filename, "picture.png");
    std::strcpy(record.filePath, file.c_str());
}

TEST(WatermarkDrawing, TextInkIsCentredMovedAndTurned) {
    const struct {
        SInt32 angle;
        float xOffset, yOffset;
        int rise;  // of the right half over the whole
    } kRows[] = {{0, 0, 0, 0},       {30, 1, -1, 1}, {45, 0, 0, 1},
                 {-60, -0.5, 2, -1}, {90, 0, 0, 0},  {360045, 0, 0, 1}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.angle);
        WatermarkHolder record;
        SetText(*record, "CONFIDENTIAL");
        record->angle = row.angle;
        record->xOffset = row.xOffset, record->yOffset = row.yOffset;
        record->density = 100;
        const QImage page = PageWith(*record);
        const CGRect ink = InkOf(page, kScale);
        EXPECT_NEAR(CGRectGetMidX(ink), 306 + 72 * row.xOffset, 1);
        EXPECT_NEAR(CGRectGetMidY(ink), 396 + 72 * row.yOffset, 1);
        const int middle = static_cast<int>(CGRectGetMidX(ink) * kScale);
        const CGRect right =
            InkOf(page.copy(middle, 0, page.width() - middle, page.height()), kScale);
        EXPECT_NEAR((CGRectGetMidY(right) - CGRectGetMidY(ink)) / 80, row.rise, 0.9);
        EXPECT_EQ(ink.size.width < 100, row.angle == 90);
    }
}

TEST(WatermarkDrawing, TextHasTheWellColorThinnedByTheDensity) {
    for (const auto& [density, green] : {std::pair{50, 191}, {INT_MAX, 127}, {-1, 255}}) {
        WatermarkHolder record;
        SetText(*record, "\u2588");
        record->wellColorRed = 1, record->wellColorAlpha = 0.5F;
        record->density = density;
        const QColor middle = PageWith(*record).pixelColor(612, 792);
        EXPECT_EQ(middle.red(), 255);
        EXPECT_NEAR(middle.green(), green, 2);
        EXPECT_EQ(middle.blue(), 255) << "not black, and not the font's color";
    }
}

TEST(WatermarkDrawing, PictureIsScaledUprightInTheMiddleInFullStrength) {
    WatermarkHolder record;
    SetPicture(*record, 400, 200);
    record->scale = 50;
    record->angle = 30, record->xOffset = 1, record->density = 10;
    const QImage page = PageWith(*record);
    const CGRect ink = InkOf(page, kScale);
    EXPECT_NEAR(ink.origin.x, 206, 0.51);
    EXPECT_NEAR(ink.origin.y, 346, 0.51);
    EXPECT_NEAR(ink.size.width, 200, 1);
    EXPECT_NEAR(ink.size.height, 100, 1);
    EXPECT_EQ(page.pixelColor(612, 792), QColor(Qt::blue));
}

TEST(WatermarkDrawing, PicturesThatCannotBeReadLeaveAWhitePage) {
    const auto folder = MakeFolder("unreadable");
    WriteFile(folder / "text", "no picture");
    mkfifo((folder / "pipe").c_str(), 0600);
    WriteFile(folder / "vast", "");
    std::filesystem::resize_file(folder / "vast", (std::uintmax_t{512} << 20) + 1);
    const std::string in = folder.string();
    for (const auto& [path, status] : {std::pair{in + "/text", noCodecErr},
                                       {in + "/pipe", fnfErr},
                                       {in + "/vast", fnfErr},
                                       {in, fnfErr},
                                       {in + "/missing", fnfErr},
                                       {std::string("/dev/zero"), fnfErr},
                                       {std::string("text"), fnfErr},
                                       {std::string(), fnfErr}}) {
        SCOPED_TRACE(path);
        WatermarkHolder record;
        SetText(*record, "");
        std::strcpy(record->filename, "text");
        std::strcpy(record->filePath, path.c_str());
        EXPECT_LT(InkOf(PageWith(*record, status)).size.width, 0);
        EXPECT_FALSE(CopyWatermarkDrawing(record.get(), kDefaultWatermarkPage));
    }
}

TEST(WatermarkDrawing, PictureIsDecodedAgainOnlyWhenItsFileOrLimitChanged) {
    WatermarkHolder record;
    SetPicture(*record, 400, 200);
    WatermarkPictures pictures;
    CGImageRef first = nullptr, second = nullptr;
    EXPECT_EQ(pictures.get(record->filePath, &first), noErr);
    EXPECT_EQ(pictures.get(record->filePath, &second), noErr);
    EXPECT_EQ(first, second);
    pictures.limitShare(0.5);
    pictures.limitPixels(100, 1000);
    EXPECT_EQ(pictures.get(record->filePath, &first), noErr);
    EXPECT_EQ(CGImageGetPixels(first).height, 50u);
    WriteFile(record->filePath, "gone");
    EXPECT_EQ(pictures.get(record->filePath, &first), noCodecErr);
}

TEST(WatermarkDrawing, KeepsATextsGlyphsInTheStoreAndWritesThemOnce) {
    const auto file = FreshStore();
    const auto draw = [](const char* text) {
        return DrawnPdf(kLetter, [text](CGContextRef context) {
            WatermarkHolder record;
            SetText(*record, text);
            EXPECT_EQ(DrawWatermark(context, kLetter, record.get()), noErr);
        });
    };
    draw("  ");
    EXPECT_FALSE(exists(file)) << "nothing was drawn";
    draw("Draft");
    WatermarkHolder kept;
    ASSERT_TRUE(loadWatermarkData(kWatermarkStore, CFSTR("Draft"), *kept));
    ASSERT_EQ(kept->glyphCount, 5);
    EXPECT_NE(kept->glyphs[0], kept->glyphs[1]);
    EXPECT_NEAR(kept->xPos, 246, 30);
    struct stat before {
    }, after{};
    stat(file.c_str(), &before);
    draw("Draft");
    stat(file.c_str(), &after);
    EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST(WatermarkDrawing, ExtremeNumbersAreDrawnSoonAndWithoutHarm) {
    WatermarkHolder record;
    for (const SInt32 number : {INT_MIN, -1, 0, 1, INT_MAX}) {
        for (const float offset : {FLT_MAX, -FLT_MAX, std::nanf(""), INFINITY, 0.F}) {
            for (const bool isText : {true, false}) {
                SCOPED_TRACE(testing::Message() << number << ' ' << offset << ' ' << isText);
                SetPicture(*record, 3, 2);
                if (isText) std::memset(record->textString, 'W', sizeof record->textString);
                record->angle = record->fontSize = record->scale = record->density = number;
                record->xOffset = offset, record->yOffset = -offset;
                record->wellColorRed = offset;
                const auto start = std::chrono::steady_clock::now();
                PageWith(*record);
                EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
            }
        }
    }
}

TEST(WatermarkDrawing, JobGetsOnlyWhatLiesOnItsPageAtMostAsFineAsPrinted) {
    WatermarkHolder record;
    SetPicture(*record, 2000, 1500);
    for (const SInt32 scale : {1, 100, 1000}) {
        record->scale = scale;
        const auto pdf = Owned<CFDataRef>::Adopt(CopyWatermarkDrawing(record.get(), {200, 100}));
        ASSERT_TRUE(pdf);
        const auto* const bytes = reinterpret_cast<const char*>(CFDataGetBytePtr(pdf));
        const std::string text(bytes, static_cast<std::size_t>(CFDataGetLength(pdf)));
        const int width = std::atoi(text.c_str() + text.find("/Width ") + 7);
        EXPECT_NEAR(width, scale == 1 ? 84 : 20000 / scale, 4);
    }
    SetText(*record, " \n");
    EXPECT_FALSE(CopyWatermarkDrawing(record.get(), kDefaultWatermarkPage));
}

}  // namespace
}  // namespace kalmo::test
