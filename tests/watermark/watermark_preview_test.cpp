#include "watermark/watermark_preview.h"

#include "platform/toolbox/interface.h"
#include "support/drawn_page.h"

namespace kalmo::test {
namespace {

/// A picture control 220 x 110 with a preview of a page, which is 85 x 110 in its middle.
class Preview : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(interface.open(), noErr);
        const EventTypeSpec draw = {kEventClassControl, kEventControlDraw};
        InstallControlEventHandler(interface.control(1), draw_, 1, &draw, &preview, nullptr);
        preview->setControl(interface.control(1));
        setDefaultValues(*record, 0);
        record->density = 100;
    }
    void show(const char* text) {
        std::strcpy(record->textString, text);
        preview->show(*record, kDefaultWatermarkPage);
    }
    QImage drawn(qreal scale = 1) {
        QImage image(interface.widget(1)->size() * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::white);
        interface.widget(1)->render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
    static OSStatus draw_(EventHandlerCallRef, EventRef event, void* preview) {
        return (*static_cast<std::unique_ptr<WatermarkPreview>*>(preview))->draw(event);
    }

    Interface interface { WindowFile(WidgetText("PictureControl", 1, Geometry(0, 0, 220, 110))) };
    WatermarkHolder record;
    std::vector<std::string> told;
    std::unique_ptr<WatermarkPreview> preview =
        std::make_unique<WatermarkPreview>([this](const _WatermarkData& shown, OSStatus status) {
            told.push_back(shown.textString + std::to_string(status) + ' ' +
                           std::to_string(shown.glyphCount));
        });
};

TEST_F(Preview, ShowsTheLastOfManyChangesInAFrame) {
    EXPECT_EQ(drawn().pixelColor(110, 55), QColor(Qt::white));
    EXPECT_NEAR(InkOf(drawn()).size.width, 85, 1) << "the frame alone";
    for (const char* const text : {"a", "b", "c", "d", "\u2588"}) show(text);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !told.empty() && told.back() == "\u25880 1"; }));
    EXPECT_LE(told.size(), 3u) << "of those that waited only the last was drawn";
    EXPECT_EQ(drawn().pixelColor(110, 55), QColor(Qt::blue));
    const Rect place = preview->pagePlace();
    EXPECT_NEAR(place.left, 220 - place.right, 1);
    EXPECT_NEAR((place.right - place.left) / 110.0, 612.0 / 792, 0.01);
    told.clear();
    QTest::qWait(50);
    EXPECT_TRUE(told.empty()) << "nothing changed";
}

TEST_F(Preview, IsDrawnAnewForAnotherSize) {
    preview->setControl(nullptr);
    show("\u2588");
    preview->setControl(interface.control(1));
    drawn();
    ASSERT_TRUE(QTest::qWaitFor([&] { return told.size() == 1; })) << "asked for by drawing";
    interface.widget(1)->resize(440, 220);
    EXPECT_EQ(drawn().pixelColor(220, 110), QColor(Qt::blue)) << "the old one, stretched";
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() == 2; }));
}

TEST_F(Preview, TellsAnUnreadablePictureOnAWhitePage) {
    std::strcpy(record->filename, "missing");
    show("");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !told.empty(); }));
    EXPECT_EQ(told.back(), std::to_string(fnfErr) + " 0");
    EXPECT_EQ(drawn().pixelColor(110, 55), QColor(Qt::white));
}

TEST_F(Preview, MayGoDuringADrawing) {
    for (int i = 0; i < 20; ++i) {
        preview = std::make_unique<WatermarkPreview>([](auto&&...) { ADD_FAILURE(); });
        preview->setControl(interface.control(1));
        show("text");
        QThread::msleep(static_cast<unsigned long>(i % 5));
    }
    preview = std::make_unique<WatermarkPreview>();
    QTest::qWait(50);
}

}  // namespace
}  // namespace kalmo::test
