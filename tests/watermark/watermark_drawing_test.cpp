#include <sys/stat.h>

#include <cfloat>
#include <chrono>

#include "support/drawn_page.h"
#include "watermark/watermark_page.h"

namespace kalmo::test {
namespace {

constexpr double kScale = 2;
constexpr char kBlocks[] = "\u2588\u2588\u2588\u2588\u2588";
constexpr CGRect kLetter{{}, kDefaultWatermarkPage};

/// The page with the record at two pixels to the point.
QImage PageWith(_WatermarkData& record, OSStatus expected = noErr) {
    MemoryConsumerState state;
    CreateMemoryConsumer(1, &state);
    EXPECT_EQ(DrawWatermarkPage(&state, kLetter.size, PagePaper::white, &record, nullptr),
              expected);
    const QImage page = PagePicture(CreateDocument(state), kScale);
    MemoryConsumerReleaseInfo(&state);
    return page;
}

/// A watermark with this text, or of a blue picture file of the given size.
void Set(_WatermarkData& record, const char* text, QSize picture = {}) {
    setDefaultValues(record, 0);
    std::strcpy(record.textString, text);
    if (picture.isEmpty()) return;
    QImage image(picture, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const auto file = MakeFolder("pictures") / "picture.png";
    image.save(QString::fromStdString(file));
    std::strcpy(record.filename, "picture");
    std::strcpy(record.filePath, file.c_str());
}

TEST(WatermarkDrawing, OnlyATextIsMovedTurnedThinnedAndInTheWellColor) {
    const struct {
        const char* text;
        SInt32 angle, density;
        CGPoint offset, middle;
        int rise, green;  // the right half over the whole; the color's in the middle
    } kRows[] = {{kBlocks, 0, 100, {}, {306, 396}, 0, 127},
                 {kBlocks, 30, 50, {1, -1}, {378, 324}, 1, 191},
                 {kBlocks, 360045, INT_MAX, {}, {306, 396}, 1, 127},
                 {kBlocks, 90, 100, {}, {306, 396}, 0, 127},
                 {kBlocks, -60, 100, {-1, 2}, {234, 540}, -1, 127},
                 {"", 30, 10, {1, -1}, {306, 396}, 0, 0}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.angle);
        WatermarkHolder record;
        Set(*record, row.text, {400, 200});
        record->angle = row.angle, record->scale = 50, record->density = row.density;
        record->xOffset = static_cast<float>(row.offset.x);
        record->yOffset = static_cast<float>(row.offset.y);
        record->wellColorRed = 1, record->wellColorAlpha = 0.5F;
        const QImage page = PageWith(*record);
        const CGRect ink = InkOf(page, kScale);
        const CGPoint seen{CGRectGetMidX(ink), CGRectGetMidY(ink)};
        const int middle = static_cast<int>(seen.x * kScale);
        const CGRect right = InkOf(page.copy(middle, 0, 1224 - middle, 1584), kScale);
        EXPECT_NEAR(seen.x, row.middle.x, 1);
        EXPECT_NEAR(seen.y, row.middle.y, 1);
        EXPECT_NEAR((CGRectGetMidY(right) - seen.y) / 50, row.rise, 0.9);
        const QColor color = page.pixelColor(middle, 1584 - static_cast<int>(seen.y * kScale));
        EXPECT_NEAR(color.green(), row.green, 2);
        EXPECT_EQ(color.red(), *row.text ? 255 : 0);
        EXPECT_TRUE(*row.text ||
                    std::abs(ink.size.width - 200) + std::abs(ink.size.height - 100) <= 1);
    }
}

TEST(WatermarkDrawing, PicturesThatCannotBeReadLeaveAWhitePage) {
    const std::string in = MakeFolder("unreadable");
    WriteFile(in + "/text", "no picture");
    WriteFile(in + "/vast", "");
    std::filesystem::resize_file(in + "/vast", (std::uintmax_t{512} << 20) + 1);
    mkfifo((in + "/pipe").c_str(), 0600);
    for (const std::string& path : {in + "/text", in + "/pipe", in + "/vast", in,
                                    std::string("/dev/zero"), std::string("text"), std::string()}) {
        SCOPED_TRACE(path);
        WatermarkHolder record;
        Set(*record, "", {1, 1});
        std::strcpy(record->filePath, path.c_str());
        const QImage page = PageWith(*record, path == in + "/text" ? noCodecErr : fnfErr);
        EXPECT_LT(InkOf(page).size.width, 0);
        EXPECT_FALSE(CopyWatermarkDrawing(record.get(), kLetter.size));
    }
}

TEST(WatermarkDrawing, ExtremeNumbersAreDrawnSoonAndWithoutHarm) {
    WatermarkHolder record;
    const auto start = std::chrono::steady_clock::now();
    for (const SInt32 number : {INT_MIN, -1, 0, 1, INT_MAX}) {
        for (const float offset : {FLT_MAX, std::nanf(""), -INFINITY}) {
            for (const bool isText : {true, false}) {
                Set(*record, "", {3, 2});
                if (isText) std::memset(record->textString, 'W', sizeof record->textString);
                record->angle = record->fontSize = record->scale = record->density = number;
                record->xOffset = record->wellColorRed = offset, record->yOffset = -offset;
                PageWith(*record);
            }
        }
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(WatermarkDrawing, JobGetsOnlyWhatLiesOnItsPageAsFineAsPrinted) {
    for (const auto& [scale, pixels] : {std::pair{1, 84}, {100, 200}, {1000, 20}}) {
        WatermarkHolder record;
        Set(*record, "", {2000, 1500});
        record->scale = scale;
        const auto pdf = Owned<CFDataRef>::Adopt(CopyWatermarkDrawing(record.get(), {200, 100}));
        ASSERT_TRUE(pdf);
        const auto* const bytes = reinterpret_cast<const char*>(CFDataGetBytePtr(pdf));
        const std::string text(bytes, static_cast<std::size_t>(CFDataGetLength(pdf)));
        EXPECT_NEAR(std::atoi(text.c_str() + text.find("/Width ") + 7), pixels, 4);
    }
}

}  // namespace
}  // namespace kalmo::test
