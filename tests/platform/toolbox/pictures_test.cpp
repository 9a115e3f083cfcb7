#include "toolbox/pictures.h"

#include "interface.h"
#include "support/drawn_page.h"

namespace kalmo::test {
namespace {

constexpr char kBlue[] =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"20\" height=\"10\">"
    "<rect width=\"20\" height=\"10\" fill=\"#0000ff\"/></svg>";

PictureRef Load(const std::string& bytes) {
    const auto file = MakeFolder("pictures") / "picture.gif";
    WriteFile(file, bytes);
    return CreatePictureFromURL(FileURL(file));
}

/// A picture control 40 x 40 that draws `picture` over all of itself.
struct PictureView : testing::Test {
    void SetUp() override {
        const EventTypeSpec types[] = {{kEventClassControl, kEventControlDraw},
                                       {kEventClassMouse, kEventMouseDown},
                                       {kEventClassMouse, kEventMouseDragged},
                                       {kEventClassMouse, kEventMouseUp}};
        const auto handle = [](EventHandlerCallRef, EventRef event, void* self) {
            return static_cast<PictureView*>(self)->handler(event);
        };
        InstallControlEventHandler(interface.control(1), handle, 4, types, this, nullptr);
    }
    void TearDown() override { DisposePicture(picture); }

    QImage drawnAt(qreal scale) {
        QImage image(QSize(40, 40) * scale, QImage::Format_ARGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::white);
        interface.widget(1)->render(&image);
        return image;
    }

    Interface interface { WindowFile(WidgetText("PictureControl", 1, Geometry(0, 0, 40, 40))) };
    PictureRef picture = nullptr;
    std::function<OSStatus(EventRef)> handler = [this](EventRef event) {
        return DrawPictureInRect(GetEventDrawing(event), picture, {0, 0, 40, 40});
    };
};

TEST_F(PictureView, FitsCentredWithItsProportionsAtAnyScale) {
    EXPECT_EQ(Load("no picture"), nullptr);
    QImage plain(20, 10, QImage::Format_RGB32);
    plain.fill(Qt::blue);
    for (const std::string& bytes : {std::string(kBlue), Encoded(plain, "png")}) {
        DisposePicture(picture);
        picture = Load(bytes);
        for (const qreal scale : {1.0, 2.0}) {
            const QImage image = drawnAt(scale);
            const auto at = [&](int x, int y) { return image.pixelColor(QPoint(x, y) * scale); };
            EXPECT_EQ(at(20, 20), QColor(Qt::blue));
            EXPECT_EQ(at(1, 12), QColor(Qt::blue));
            EXPECT_NE(at(20, 5), QColor(Qt::blue)) << "above it";
            EXPECT_NE(at(20, 35), QColor(Qt::blue)) << "below it";
        }
    }
}

TEST_F(PictureView, PressThatIsWantedIsDraggedAndAlwaysLetGo) {
    interface.windowWidget()->resize(100, 100);
    interface.windowWidget()->show();
    QDialog other(interface.windowWidget());
    other.setModal(true);
    std::string record;
    OSStatus answer = noErr;
    handler = [&](EventRef event) {
        SInt32 x = 0, y = 0;
        if (!GetEventMousePlace(event, &x, &y)) return eventNotHandledErr;
        record += " du   m"[GetEventKind(event)] + std::to_string(x + y);
        return answer;
    };
    const auto drag = [&](Qt::MouseButton button, const std::function<void()>& end) {
        QWindow* const window = interface.windowWidget()->windowHandle();
        QTest::mousePress(window, button, {}, {10, 12});
        QTest::mouseMove(window, {60, 30});
        end();
        QTest::mouseRelease(window, button, {}, {60, 30});
        ShowControl(interface.control(1));
        return std::exchange(record, {});
    };
    const auto hide = [&] { HideControl(interface.control(1)); };
    EXPECT_EQ(drag(Qt::RightButton, [] {}), "");
    EXPECT_EQ(drag(Qt::LeftButton, [] {}), "d22m90u90");
    EXPECT_EQ(drag(Qt::LeftButton, hide), "d22m90u90");
    EXPECT_EQ(drag(Qt::LeftButton, [&] { other.show(), other.hide(); }), "d22m90u90");
    answer = eventNotHandledErr;
    EXPECT_EQ(drag(Qt::LeftButton, hide), "d22");
    answer = noErr;
    EXPECT_EQ(drag(Qt::LeftButton, [&] { DisableControl(interface.control(1)); }), "d22m90u90");
    EXPECT_EQ(drag(Qt::LeftButton, [] {}), "") << "while disabled";
}

/// Columns of red and blue, one pixel wide.
QImage Stripes(int side) {
    QImage image(side, side, QImage::Format_ARGB32);
    for (int i = 0; i < side * side; ++i) {
        image.setPixelColor(i % side, i / side, i % side % 2 ? Qt::blue : Qt::red);
    }
    return image;
}

TEST_F(PictureView, ImagesAreSharpInTheScreensPixelsAndEvenWhenMadeSmaller) {
    QImage even(10, 10, QImage::Format_ARGB32);
    even.fill(qRgb(127, 0, 127));
    const std::tuple<double, QRect, QImage, QImage> cases[] = {
        {2, {6, 6, 20, 20}, Stripes(20), Stripes(20)},
        {1.25, {4, 4, 13, 13}, Stripes(13), Stripes(13)},
        {1, {3, 3, 10, 10}, Stripes(400), even}};
    for (const auto& [scale, place, given, shown] : cases) {
        const std::string bytes = Encoded(given, "png");
        Owned<GraphicsImportComponent> importer;
        Owned<CGImageRef> image;
        GetGraphicsImporterForBytes(bytes.data(), bytes.size(), importer.adopt());
        GraphicsImportCreateCGImage(importer, image.adopt(), 0);
        handler = [&image](EventRef event) {
            DrawImageInRect(GetEventDrawing(event), image, {3, 3, 13, 13});
            return FrameRect(GetEventDrawing(event), {2, 2, 14, 14});
        };
        const QImage drawn = drawnAt(scale);
        EXPECT_EQ(drawn.copy(place), shown) << scale;
        EXPECT_NE(drawn.pixel(place.left() - 1, 10), drawn.pixel(0, 0)) << "the frame";
    }
}

TEST(Pictures, ButtonsIconOutlivesItsPicture) {
    QToolButton button;
    const PictureRef picture = Load(kBlue);
    SetControlPicture(ControlFromWidget(&button), picture);
    DisposePicture(picture);
    const QImage icon = button.icon().pixmap({20, 20}, 2.0).toImage();
    EXPECT_EQ(icon.size(), QSize(40, 40)) << "drawn for the display";
    EXPECT_EQ(icon.pixelColor(20, 20), QColor(Qt::blue));
}

}  // namespace
}  // namespace kalmo::test
