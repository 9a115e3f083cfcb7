#include "watermark/watermark_preview.h"

#include "watermark/preview_view.h"

namespace kalmo::test {
namespace {

TEST(WatermarkPreview, ShowsTheLastChangeAndMayGoDuringADrawing) {
    PreviewView view(220, 110);
    std::vector<std::string> told;
    auto preview = std::make_unique<WatermarkPreview>([&](const auto& shown, OSStatus status) {
        told.push_back(shown.textString + std::to_string(status));
    });
    view.shown = preview.get();
    WatermarkHolder record;
    setDefaultValues(*record, 0);
    record->density = 100;
    const auto show = [&](const char* text) {
        std::strcpy(record->textString, text);
        preview->show(*record, kDefaultWatermarkPage);
    };
    const auto tells = [&](const std::string& last) {
        return QTest::qWaitFor([&] { return !told.empty() && told.back() == last; });
    };
    show("early");
    preview->setControl(view.control());
    view.widget()->grab();
    EXPECT_TRUE(tells("early0")) << "asked for by drawing";
    told.clear();
    for (int i = 0; i < 50; ++i) show("waits");
    show("\u2588");
    EXPECT_TRUE(tells("\u25880"));
    EXPECT_LT(told.size(), 25u) << "of those that waited only the last was drawn";
    EXPECT_EQ(view.drawn().pixelColor(110, 55), QColor(Qt::blue));
    std::strcpy(record->filename, "missing");
    show("");
    EXPECT_TRUE(tells(std::to_string(fnfErr)));
    EXPECT_EQ(view.drawn().pixelColor(110, 55), QColor(Qt::white));
    for (unsigned long delay = 0; delay < 5; ++delay) {
        preview = std::make_unique<WatermarkPreview>([](auto&&...) { ADD_FAILURE(); });
        preview->setControl(view.control());
        show("text");
        QThread::msleep(delay);
    }
    preview = std::make_unique<WatermarkPreview>();
    QTest::qWait(50);
}

}  // namespace
}  // namespace kalmo::test
