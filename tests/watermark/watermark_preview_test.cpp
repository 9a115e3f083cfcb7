#include "watermark/watermark_preview.h"

#include "platform/toolbox/interface.h"

namespace kalmo::test {
namespace {

/// A picture control that is all one preview. Outlives no preview that it shows.
class PreviewView {
public:
    PreviewView(int width, int height)
        : interface_(WindowFile(WidgetText("PictureControl", 1, Geometry(0, 0, width, height)))) {
        const EventTypeSpec type = {kEventClassControl, kEventControlDraw};
        const auto draw = [](EventHandlerCallRef, EventRef event, void* self) {
            return static_cast<PreviewView*>(self)->shown->draw(event);
        };
        InstallControlEventHandler(control(), draw, 1, &type, this, nullptr);
    }

    [[nodiscard]] ControlRef control() const { return interface_.control(1); }
    [[nodiscard]] QWidget* widget() const { return interface_.widget(1); }
    /// What it draws on white.
    [[nodiscard]] QImage drawn() const {
        QImage image(widget()->size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        widget()->render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }

    PagePreview* shown = nullptr;

private:
    Interface interface_;
};

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
