#include "graphics/pdf_document.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfDocument>
#include <memory>

#include "graphics/data_stream_private.h"
#include "graphics/image_private.h"

namespace {

using kalmo::foundation::As;
using kalmo::foundation::TypeRecord;
using kalmo::graphics::PixelSize;

const TypeRecord kDocumentType{"PDF document", nullptr, nullptr, nullptr};

/// Stale zeros behind the document would hide its end from the reader.
std::string WithoutPadding(std::string bytes) {
    bytes.erase(bytes.find_last_not_of('\0') + 1);
    return bytes;
}

}  // namespace

struct CGPDFDocumentObject final : kalmo::foundation::Object {
    explicit CGPDFDocumentObject(const std::string& content)
        : Object(kDocumentType), bytes(QByteArray::fromStdString(content)), buffer(&bytes) {
        buffer.open(QIODevice::ReadOnly);
        document.load(&buffer);
    }

    [[nodiscard]] bool isReady() const { return document.status() == QPdfDocument::Status::Ready; }
    [[nodiscard]] bool hasPage(std::size_t page) const {
        return page >= 1 && page <= static_cast<std::size_t>(document.pageCount());
    }

    QByteArray bytes;
    QBuffer buffer;
    // Declared last, so that it closes before the bytes it reads go.
    mutable QPdfDocument document{nullptr};
};

CGPDFDocumentRef CGPDFDocumentCreateWithProvider(CGDataProviderRef provider) {
    const auto bytes = kalmo::graphics::ReadAll(provider);
    if (!bytes || bytes->empty()) return nullptr;
    auto document = std::make_unique<CGPDFDocumentObject>(WithoutPadding(*bytes));
    return document->isReady() ? document.release() : nullptr;
}

std::size_t CGPDFDocumentGetNumberOfPages(CGPDFDocumentRef document) {
    const auto* const found = As<CGPDFDocumentObject>(document, kDocumentType);
    return found ? static_cast<std::size_t>(found->document.pageCount()) : 0;
}

CGRect CGPDFDocumentGetMediaBox(CGPDFDocumentRef document, std::size_t page) {
    const auto* const found = As<CGPDFDocumentObject>(document, kDocumentType);
    if (!found || !found->hasPage(page)) return {};
    const QSizeF size = found->document.pagePointSize(static_cast<int>(page) - 1);
    return CGRectMake(0, 0, size.width(), size.height());
}

CGImageRef CGPDFDocumentCreatePageImage(CGPDFDocumentRef document, std::size_t page,
                                        std::size_t width, std::size_t height) {
    const auto* const found = As<CGPDFDocumentObject>(document, kDocumentType);
    if (!found || !found->hasPage(page) || !width || !height) return nullptr;
    if (width > kLongestImageSide || height > kLongestImageSide) return nullptr;
    const QSize size(static_cast<int>(width), static_cast<int>(height));
    const QImage ink = found->document.render(static_cast<int>(page) - 1, size);
    if (ink.isNull()) return nullptr;
    QImage sheet(size, QImage::Format_ARGB32_Premultiplied);
    sheet.fill(Qt::white);
    QPainter(&sheet).drawImage(0, 0, ink);
    const PixelSize pixels{size.width(), size.height()};
    const UInt8* const bits = sheet.constBits();
    return new CGImageObject({pixels, pixels, {bits, bits + sheet.sizeInBytes()}});
}
