// A page drawn into memory and read back as pixels.
#pragma once

#include <QBuffer>
#include <QColor>
#include <QImage>

#include "support/pdf_documents.h"

namespace kalmo::test {

inline std::size_t TakeAway(void* info, void* buffer, std::size_t count) {
    auto& bytes = *static_cast<std::string*>(info);
    const std::size_t taken = bytes.copy(static_cast<char*>(buffer), count);
    bytes.erase(0, taken);
    return taken;
}

inline Owned<CGPDFDocumentRef> Reopened(std::string bytes) {
    const auto provider =
        Owned<CGDataProviderRef>::Adopt(CGDataProviderCreate(&bytes, {.getBytes = TakeAway}));
    return Owned<CGPDFDocumentRef>::Adopt(CGPDFDocumentCreateWithProvider(provider));
}

/// The picture shares the image's pixels.
inline QImage PictureOf(CGImageRef image) {
    const CGImagePixels pixels = CGImageGetPixels(image);
    return QImage(pixels.bytes, static_cast<int>(pixels.width), static_cast<int>(pixels.height),
                  QImage::Format_ARGB32_Premultiplied);
}

/// The first page at `scale` pixels to the point; null when there is none.
inline QImage PagePicture(CGPDFDocumentRef document, double scale = 1) {
    const CGSize size = CGPDFDocumentGetMediaBox(document, 1).size;
    const auto image = Owned<CGImageRef>::Adopt(
        CGPDFDocumentCreatePageImage(document, 1, static_cast<std::size_t>(size.width * scale),
                                     static_cast<std::size_t>(size.height * scale)));
    return PictureOf(image).copy();
}

inline QImage DrawnPage(const CGRect& box, const std::function<void(CGContextRef)>& draw,
                        double scale = 1) {
    return PagePicture(Reopened(DrawnPdf(box, draw)), scale);
}

/// The bytes of an image file.
inline std::string Encoded(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, format) ? bytes.toStdString() : std::string();
}

/// The smallest rectangle around all pixels that are not white, in points, y upwards.
inline CGRect InkOf(const QImage& page, double scale = 1) {
    int left = page.width(), right = -1, top = page.height(), bottom = -1;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            if (qGray(page.pixel(x, y)) > 250) continue;
            left = std::min(left, x), right = std::max(right, x);
            top = std::min(top, y), bottom = std::max(bottom, y);
        }
    }
    return CGRectMake(left / scale, (page.height() - bottom - 1) / scale,
                      (right - left + 1) / scale, (bottom - top + 1) / scale);
}

}  // namespace kalmo::test
