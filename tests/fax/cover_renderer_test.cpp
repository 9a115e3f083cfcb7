// Where the cover's texts and its image stand.
#include "fax/cover_renderer.h"

#include "house/resource_files.h"
#include "support/dictionaries.h"
#include "support/drawn_page.h"
#include "support/programs.h"
#include "watermark/fresh_store.h"
#include "watermark/watermark_store.h"

namespace kalmo::test {
namespace {

constexpr CGRect kLetter{{}, {612, 792}};

struct Cover {
    std::string sender, recipients, notes;

    [[nodiscard]] std::string pdf(_WatermarkData* image = nullptr) const {
        std::string bytes;
        const auto consumer =
            Owned<CGDataConsumerRef>::Adopt(CGDataConsumerCreate(&bytes, {.putBytes = Append}));
        const auto from = String(sender), to = String(recipients), said = String(notes);
        EXPECT_EQ(DrawFaxCover(consumer, kLetter, {CFSTR("From:"), from}, {CFSTR("To:"), to},
                               {nullptr, said}, image),
                  noErr);
        return bytes;
    }
    [[nodiscard]] QImage pixels(_WatermarkData* image = nullptr) const {
        return PagePicture(Reopened(pdf(image)));
    }
    /// What pdftotext makes of it.
    [[nodiscard]] std::string text(const std::string& option = "-raw") const {
        const auto file = MakeFolder("cover") / "cover.pdf";
        WriteFile(file, pdf());
        return RunProgram({"/usr/bin/pdftotext", {"-nopgbrk", option, file, "-"}}).output;
    }
    /// From the page's top, of the lines that begin at the left margin.
    [[nodiscard]] std::vector<double> lineTops() const {
        std::vector<double> tops;
        for (const std::string& top :
             Matches(text("-bbox"), std::regex("xMin=\"31\\.0+\" yMin=\"([0-9.]+)\"")))
            tops.push_back(std::stod(top));
        return tops;
    }
};

std::string Repeated(const char* text, int count) {
    return QByteArray(text).repeated(count).toStdString();
}

TEST(CoverRenderer, SectionsOfAnyScriptFollowEachOtherFromTheFirstLineOn) {
    const Cover cover{"Zoë\nGräß\n", "Bo, , \u5c71\u7530", "two\r\nlines"};
    EXPECT_EQ(cover.text(), "From:\nZoë\nGräß\nTo:\nBo, , \u5c71\u7530\ntwo\nlines\n");
    EXPECT_TRUE(Contains(Cover{"\u0645\u062d"}.text(), "\u062d"));
    const auto tops = cover.lineTops();
    ASSERT_EQ(tops.size(), 7u);
    const double line = tops[1] - tops[0];
    EXPECT_NEAR(tops[0], 103, 0.1);
    EXPECT_NEAR(tops[3] - tops[2], line + 12, 0.1) << "between sections";
    EXPECT_EQ(Cover{}.text(), "") << "no label without a text";
}

TEST(CoverRenderer, TextsOfAnyLengthEndAtTheLastLineAboveTheMargin) {
    for (const char* part : {"Ann, ", "W", "\u5c71", "\u062d ", "\n"}) {
        SCOPED_TRACE(part);
        const Cover cover{"Ann", Repeated(part, 1'000'000), "Notes"};
        const CGRect ink = InkOf(cover.pixels());
        EXPECT_GE(ink.origin.y, 30);
        EXPECT_LE(ink.origin.x + ink.size.width, 612 - 29);
        EXPECT_FALSE(Contains(cover.text(), "Notes"));
    }
    EXPECT_TRUE(Contains(Cover{"", Repeated("\u0301", 1'000'000), "Notes"}.text(), "Notes"));
    const auto tops = Cover{"", "", Repeated("line\n", 500)}.lineTops();
    const double line = tops[1] - tops[0];
    EXPECT_LE(tops.back() + line, 792 - 31);
    EXPECT_GT(tops.back() + 2 * line, 792 - 31) << "one more would have fitted";
}

TEST(CoverRenderer, ImageLiesOverThePageThinnedAsOne) {
    FreshStore();
    const std::string picture = MakeFolder("pictures") / "blue.png";
    QImage blue(400, 400, QImage::Format_RGB32);
    blue.fill(Qt::blue);
    blue.save(QString::fromStdString(picture));
    for (const std::string text : {"", "\u2588\u2588"}) {
        for (const auto& [density, red] : {std::pair{-5, 255}, {0, 255}, {50, 127}, {200, 0}}) {
            SCOPED_TRACE(text + std::to_string(density));
            WatermarkHolder image;
            setDefaultValues(*image, 0);
            image->density = density, image->angle = 0, image->fontSize = 200;
            std::strcpy(image->textString, text.c_str());
            std::strcpy(image->filename, "blue");
            std::strcpy(image->filePath, picture.c_str());
            const QImage drawn = Cover{"Ann"}.pixels(image.get());
            EXPECT_NEAR(drawn.pixelColor(306, 396).red(), red, 2);
            EXPECT_EQ(drawn == Cover{"Ann"}.pixels(), density <= 0);
        }
    }
}

}  // namespace
}  // namespace kalmo::test
