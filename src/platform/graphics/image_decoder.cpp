#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <algorithm>

#include "graphics/image_private.h"

namespace kalmo::graphics {
namespace {

// The same limit as for the toolbox's pictures: the setting is one for the process.
constexpr int kAllocationLimitInMegabytes = 256;
constexpr int kJpegQuality = 90;
// Drawings have no pixel size of their own, and PDF is no picture file.
constexpr const char* kFormats[] = {"gif", "png", "jpeg", "tiff", "bmp"};

bool IsKnown(const QByteArray& format) {
    return std::ranges::any_of(kFormats, [&](const char* known) { return format == known; });
}

/// A reader over the bytes, borrowed; not valid when they are of no known format.
class Reader final {
public:
    explicit Reader(const std::string& bytes)
        : data_(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()))),
          buffer_(&data_) {
        buffer_.open(QIODevice::ReadOnly);
        QImageReader::setAllocationLimit(kAllocationLimitInMegabytes);
        reader_.setDecideFormatFromContent(true);
        reader_.setAutoTransform(true);
        reader_.setDevice(&buffer_);
    }

    [[nodiscard]] bool isKnown() const { return IsKnown(reader_.format()); }
    [[nodiscard]] bool isTurned() const {
        return reader_.transformation() & QImageIOHandler::TransformationRotate90;
    }
    [[nodiscard]] QSize sizeAsSeen() const {
        return isTurned() ? reader_.size().transposed() : reader_.size();
    }
    QImageReader* operator->() { return &reader_; }

private:
    QByteArray data_;
    QBuffer buffer_;
    QImageReader reader_;
};

QSize SizeWithin(const QSize& full, PixelSize limit) {
    const QSize most(limit.width, limit.height);
    if (most.isEmpty()) return full;
    if (full.width() <= most.width() && full.height() <= most.height()) return full;
    return full.scaled(most, Qt::KeepAspectRatio).expandedTo({1, 1});
}

/// Readers take a file that was cut off for a whole picture, grey where it ends. A whole one has an
/// end mark behind its last scan.
bool HasJpegEnd(const std::string& bytes) {
    const std::size_t scan = bytes.rfind("\xff\xda");
    return scan != std::string::npos && bytes.find("\xff\xd9", scan) != std::string::npos;
}

}  // namespace

std::optional<PixelSize> PictureSize(const std::string& bytes) {
    const Reader reader(bytes);
    const QSize size = reader.isKnown() ? reader.sizeAsSeen() : QSize();
    constexpr auto kMost = static_cast<int>(kLongestImageSide);
    if (size.isEmpty() || size.width() > kMost || size.height() > kMost) return std::nullopt;
    return PixelSize{size.width(), size.height()};
}

std::optional<DecodedPicture> DecodePicture(const std::string& bytes, PixelSize limit) try {
    const auto full = PictureSize(bytes);
    if (!full) return std::nullopt;
    Reader reader(bytes);
    const bool isPhotograph = reader->format() == "jpeg";
    if (isPhotograph && !HasJpegEnd(bytes)) return std::nullopt;
    const QSize wanted = SizeWithin({full->width, full->height}, limit);
    if (wanted != QSize(full->width, full->height)) {
        reader->setScaledSize(reader.isTurned() ? wanted.transposed() : wanted);
    }
    QImage image = reader->read();
    // A reader that cannot decode to a size hands over every pixel.
    if (image.size() != wanted && !image.isNull()) {
        image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return std::nullopt;
    const UInt8* const bits = image.constBits();
    return DecodedPicture{
        *full, {image.width(), image.height()}, {bits, bits + image.sizeInBytes()}, isPhotograph};
} catch (const std::bad_alloc&) {
    return std::nullopt;
}

std::string JpegOf(const UInt8* bytes, std::size_t bytesPerRow, PixelSize size) try {
    const QImage image(bytes, size.width, size.height, static_cast<qsizetype>(bytesPerRow),
                       QImage::Format_RGB32);
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "jpeg", kJpegQuality) ? file.toStdString() : std::string();
} catch (const std::bad_alloc&) {
    return {};
}

}  // namespace kalmo::graphics
