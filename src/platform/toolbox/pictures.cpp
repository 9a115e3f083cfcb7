#include "toolbox/pictures.h"

#include <QBuffer>
#include <QImageReader>
#include <QSvgRenderer>
#include <algorithm>

#include "toolbox/control_state.h"
#include "toolbox/drawing.h"

namespace toolbox {
namespace {

constexpr int kAllocationLimitInMegabytes = 256;
constexpr int kLongestSide = 16384;

class VectorPicture final : public Picture {
public:
    explicit VectorPicture(const QByteArray& svg) : renderer_(svg) {}

    [[nodiscard]] bool isValid() const { return renderer_.isValid() && !size().isEmpty(); }
    [[nodiscard]] QSize size() const override { return renderer_.defaultSize(); }
    void draw(QPainter& painter, const QRectF& bounds) override {
        renderer_.render(&painter, bounds);
    }

private:
    QSvgRenderer renderer_;
};

class RasterPicture final : public Picture {
public:
    explicit RasterPicture(QImage image) : image_(std::move(image)) {}

    [[nodiscard]] QSize size() const override { return image_.size(); }

    void draw(QPainter& painter, const QRectF& bounds) override {
        const qreal scale = painter.device()->devicePixelRatioF();
        const QSize pixels = (bounds.size() * scale).toSize();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(bounds, pixels.width() < image_.width() ? reducedTo(pixels) : image_);
    }

private:
    /// The painter's own scaling skips pixels when it makes a picture much smaller.
    const QImage& reducedTo(const QSize& pixels) {
        if (reduced_.size() != pixels) {
            reduced_ = image_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        }
        return reduced_;
    }

    QImage image_, reduced_;
};

/// Compressed drawings are left out: their true size shows only when it is too late.
bool IsDrawing(const QByteArray& bytes) { return bytes.left(512).trimmed().startsWith('<'); }

std::shared_ptr<Picture> ReadDrawing(const QByteArray& bytes) {
    auto drawing = std::make_shared<VectorPicture>(bytes);
    return drawing->isValid() ? drawing : nullptr;
}

std::shared_ptr<Picture> ReadRaster(QByteArray bytes) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    if (reader.format().startsWith("svg")) return nullptr;
    const QSize size = reader.size();
    if (size.width() > kLongestSide || size.height() > kLongestSide) return nullptr;
    QImageReader::setAllocationLimit(kAllocationLimitInMegabytes);
    QImage image = reader.read();
    return image.isNull() ? nullptr : std::make_shared<RasterPicture>(std::move(image));
}

QRect PlaceOf(const Rect& bounds) {
    return {QPoint(bounds.left, bounds.top), QPoint(bounds.right - 1, bounds.bottom - 1)};
}

/// The pixels of what is drawn on, of which a place may take a fraction.
class PixelGrid final {
public:
    explicit PixelGrid(const QPainter& painter)
        : toPixels_(painter.deviceTransform()), toPlace_(toPixels_.inverted()) {}

    /// The same number of them wherever it lies.
    [[nodiscard]] QRect pixelsOf(const QRect& place) const {
        const QRectF exact = toPixels_.mapRect(QRectF(place));
        return {exact.topLeft().toPoint(), exact.size().toSize()};
    }
    [[nodiscard]] QRectF placeOf(const QRect& pixels) const {
        return toPlace_.mapRect(QRectF(pixels));
    }

private:
    QTransform toPixels_, toPlace_;
};

/// The painter's own scaling would skip pixels of a much larger picture.
QImage ScaledTo(const QSize& size, const QImage& image) {
    return image.size() == size
               ? image
               : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// Half way between text and ground, so that it stands out from either, in light and dark themes.
QColor FrameColor(const QPalette& palette) {
    const QColor text = palette.color(QPalette::WindowText),
                 ground = palette.color(QPalette::Window);
    return QColor::fromRgbF((text.redF() + ground.redF()) / 2,
                            (text.greenF() + ground.greenF()) / 2,
                            (text.blueF() + ground.blueF()) / 2);
}

}  // namespace

void DrawToFit(QPainter& painter, Picture& picture, const QRectF& bounds) {
    const QSizeF fitting = QSizeF(picture.size()).scaled(bounds.size(), Qt::KeepAspectRatio);
    QRectF place({}, fitting);
    place.moveCenter(bounds.center());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    picture.draw(painter, place);
    painter.restore();
}

/// A line as wide as so many pixels of the control, one of the screen's at least, just inside.
OSStatus FillEdge(QPainter& painter, const Rect& bounds, double width, const QColor& color) {
    const QRect place = PlaceOf(bounds);
    if (place.isEmpty()) return paramErr;
    const PixelGrid grid(painter);
    const QRect outside = grid.pixelsOf(place);
    const double scale = static_cast<double>(outside.width()) / place.width();
    const int line = std::max(1, qRound(width * scale));
    for (const QRect& side : QRegion(outside) - outside.adjusted(line, line, -line, -line)) {
        painter.fillRect(grid.placeOf(side), color);
    }
    return noErr;
}

std::shared_ptr<Picture> ReadPicture(const QByteArray& bytes) {
    return IsDrawing(bytes) ? ReadDrawing(bytes) : ReadRaster(bytes);
}

}  // namespace toolbox

using namespace toolbox;

PictureRef CreatePictureFromURL(CFURLRef url) {
    Owned<CFDataRef> data;
    if (!url || !CFURLCreateDataAndPropertiesFromResource(kCFAllocatorDefault, url, data.adopt(),
                                                          nullptr)) {
        return nullptr;
    }
    auto picture = ReadPicture({reinterpret_cast<const char*>(CFDataGetBytePtr(data)),
                                static_cast<qsizetype>(CFDataGetLength(data))});
    return picture ? new OpaquePicture{std::move(picture)} : nullptr;
}

void DisposePicture(PictureRef picture) { delete picture; }

void GetPictureSize(PictureRef picture, SInt32* width, SInt32* height) {
    const QSize size = picture ? picture->picture->size() : QSize(0, 0);
    if (width) *width = size.width();
    if (height) *height = size.height();
}

OSStatus DrawPictureInRect(DrawingRef drawing, PictureRef picture, const Rect& bounds) {
    const QRect place = PlaceOf(bounds);
    if (!drawing || !picture || place.isEmpty()) return paramErr;
    DrawToFit(drawing->painter, *picture->picture, place);
    return noErr;
}

OSStatus DrawImageInRect(DrawingRef drawing, CGImageRef image, const Rect& bounds) {
    const CGImagePixels lent = CGImageGetPixels(image);
    const QRect place = PlaceOf(bounds);
    if (!drawing || !lent.bytes || place.isEmpty()) return paramErr;
    const QImage whole(lent.bytes, static_cast<int>(lent.width), static_cast<int>(lent.height),
                       static_cast<qsizetype>(lent.bytesPerRow),
                       QImage::Format_ARGB32_Premultiplied);
    const PixelGrid grid(drawing->painter);
    const QRect pixels = grid.pixelsOf(place);
    drawing->painter.drawImage(grid.placeOf(pixels), ScaledTo(pixels.size(), whole));
    return noErr;
}

OSStatus FrameRect(DrawingRef drawing, const Rect& bounds) {
    return drawing ? FillEdge(drawing->painter, bounds, 1, FrameColor(drawing->palette)) : paramErr;
}

OSStatus StrokeRect(DrawingRef drawing, const Rect& bounds, double width) {
    return drawing ? FillEdge(drawing->painter, bounds, width / 2, Qt::black) : paramErr;
}

double GetControlScale(ControlRef control) {
    QWidget* const widget = ToWidget(control);
    return widget ? widget->devicePixelRatioF() : 1;
}
