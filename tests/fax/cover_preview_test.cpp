#include "fax/cover_preview.h"

#include "support/dictionaries.h"
#include "support/drawn_page.h"
#include "watermark/fresh_store.h"
#include "watermark/preview_view.h"
#include "watermark/watermark_store.h"

namespace kalmo::test {
namespace {

TEST(CoverPreview, ShowsTheLastStateInAFrameAndSaysWhatItShows) {
    FreshStore();
    PreviewView view(612, 792);
    FaxCoverPreview preview;
    preview.setControl(view.control());
    view.shown = &preview;
    const auto bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    const auto show = [&](const char* options, const std::string& notes) {
        DrawFaxCoverPreview(preview, {bundle, Dictionary(options), nullptr, String(notes), 2});
    };
    const auto says = [&](const std::string& words) {
        return Wait([&] { return view.widget()->accessibleDescription().toStdString() == words; });
    };
    const auto shows = [&](const QColor& color) {
        return Wait([&] { return view.drawn().pixelColor(306, 396) == color; });
    };
    for (int i = 0; i < 50; ++i) show("WatermarkName=W", "early");
    EXPECT_TRUE(
        says("Cover sheet on Letter paper\nNotes: early\nWithout the image “W”, which "
             "cannot be read"));
    WatermarkHolder image;
    setDefaultValues(*image, 0);
    std::strcpy(image->textString, "\u2588"), image->textMode = 1, image->density = 100;
    saveWatermarkData(kFaxImageStore, *image);
    show("WatermarkName=\u2588", "");
    EXPECT_TRUE(says("Cover sheet on Letter paper\nWith the image “█”") && shows(Qt::blue));
    EXPECT_EQ(view.drawn().pixelColor(1, 400), QColor(Qt::black));
    EXPECT_EQ(view.drawn().pixelColor(4, 400), QColor(Qt::white)) << "half lies outside";
    show("Size=2", "");
    EXPECT_TRUE(says("Cover sheet on A4 paper") && shows(Qt::white));
    EXPECT_NEAR(InkOf(view.drawn()).size.width, 792 * 595.0 / 842, 1);
}

}  // namespace
}  // namespace kalmo::test
