#include "toolbox/pictures.h"

#include "interface.h"

namespace kalmo::test {
namespace {

constexpr char kBlue[] =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"20\" height=\"10\">"
    "<rect width=\"20\" height=\"10\" fill=\"#0000ff\"/></svg>";

std::string Encoded(const char* format) {
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes.toStdString();
}

PictureRef Load(const std::string& bytes) {
    const auto file = MakeFolder("pictures") / "picture.gif";
    WriteFile(file, bytes);
    return CreatePictureFromURL(FileURL(file));
}

/// One black pixel.
const std::string kGif =
    QByteArray::fromBase64("R0lGODlhAQABAIAAAAAAAP///yH5BAAAAAAALAAAAAABAAEAAAICRAEAOw==")
        .toStdString();

TEST(Pictures, KnownFormatsLoadWhateverTheNameSaysAndBrokenOnesAreNone) {
    std::string huge = Encoded("bmp");  // width and height at 18 and 22
    huge[20] = huge[21] = huge[24] = huge[25] = 0x7f;
    const struct {
        const char* why;
        std::string bytes;
        SInt32 width;  // 0: no picture
    } cases[] = {{"svg", kBlue, 20},
                 {"svg after a declaration", "<?xml version=\"1.0\"?>\n" + std::string(kBlue), 20},
                 {"png", Encoded("png"), 20},
                 {"gif", kGif, 1},
                 {"empty", "", 0},
                 {"cut PNG", Encoded("png").substr(0, 40), 0},
                 {"broken SVG", "<svg xmlns=\"http://www.w3.org/2000/svg\"><rect", 0},
                 {"another XML", "<plist/>", 0},
                 {"two thousand million pixels wide", huge, 0}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        const PictureRef picture = Load(row.bytes);
        SInt32 width = -1;
        GetPictureSize(picture, &width, nullptr);
        EXPECT_EQ(picture != nullptr, row.width != 0);
        EXPECT_EQ(width, row.width);
        DisposePicture(picture);
    }
}

/// A picture control 40 x 40 that draws `picture` over all of itself.
class PictureView : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(interface.open(), noErr);
        const EventTypeSpec draw = {kEventClassControl, kEventControlDraw};
        InstallControlEventHandler(
            interface.control(1),
            [](EventHandlerCallRef, EventRef event, void* data) -> OSStatus {
                Rect bounds;
                GetControlBounds(GetEventControl(event), &bounds);
                return DrawPictureInRect(
                    GetEventDrawing(event), *static_cast<PictureRef*>(data),
                    {0, 0, bounds.bottom - bounds.top, bounds.right - bounds.left});
            },
            1, &draw, &picture, nullptr);
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
};

TEST_F(PictureView, FitsCentredWithItsProportionsAtAnyScale) {
    for (const std::string& bytes : {std::string(kBlue), Encoded("png")}) {
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
