#include "print_dialog/document_worker.h"

#include <QPainter>
#include <cmath>

namespace kalmo {
namespace {

constexpr double kMostPixels = 16e6;

/// Broken files have pages of any size, and of none.
double Length(double points) { return std::isfinite(points) && points > 0 ? points : 0; }

double Scale(const SheetPicture& picture) {
    const double pixels = picture.sheet.width * picture.sheet.height * picture.pixelsPerPoint *
                          picture.pixelsPerPoint;
    return pixels <= kMostPixels ? picture.pixelsPerPoint
                                 : picture.pixelsPerPoint * std::sqrt(kMostPixels / pixels);
}

QSize Pixels(double width, double height, double scale) {
    return {std::max(1, qRound(width * scale)), std::max(1, qRound(height * scale))};
}

}  // namespace

DocumentWorker::DocumentWorker(std::shared_ptr<const std::atomic<int>> newestPicture)
    : newestPicture_(std::move(newestPicture)) {}

DocumentFault DocumentWorker::load(const std::filesystem::path& file) {
    pdf_.reset();
    bytes_.reset();
    copy_ = PrivateCopy::Make(file);
    if (!copy_) return DocumentFault::unreadable;
    bytes_ = std::make_unique<QFile>(QString::fromStdString(copy_->path().string()));
    if (!bytes_->open(QIODevice::ReadOnly)) return DocumentFault::unreadable;
    pdf_ = std::make_unique<QPdfDocument>();
    pdf_->load(bytes_.get());
    switch (pdf_->error()) {
        case QPdfDocument::Error::IncorrectPassword:
        case QPdfDocument::Error::UnsupportedSecurityScheme:
            return DocumentFault::locked;
        default:
            break;
    }
    const bool ready = pdf_->status() == QPdfDocument::Status::Ready && pdf_->pageCount() > 0;
    return ready ? DocumentFault::none : DocumentFault::damaged;
}

std::vector<PageSize> DocumentWorker::pageSizes() const {
    std::vector<PageSize> sizes;
    for (int page = 0; page < pdf_->pageCount(); ++page) {
        const QSizeF size = pdf_->pagePointSize(page);
        sizes.push_back({Length(size.width()), Length(size.height())});
    }
    return sizes;
}

void DocumentWorker::open(int opening, const std::filesystem::path& file) {
    const DocumentFault fault = load(file);
    if (fault == DocumentFault::none) {
        Q_EMIT opened(opening, fault, copy_, pageSizes());
        return;
    }
    pdf_.reset();
    Q_EMIT opened(opening, fault, nullptr, {});
}

void DocumentWorker::draw(int request, const SheetPicture& picture) {
    if (isStale(request) || !pdf_) return;
    const double scale = Scale(picture);
    QImage image(Pixels(picture.sheet.width, picture.sheet.height, scale), QImage::Format_RGB32);
    if (image.isNull()) return;
    image.fill(Qt::white);
    QPainter painter(&image);
    for (const PlacedPage& placed : picture.sheet.pages) {
        if (isStale(request)) return;
        QPdfDocumentRenderOptions options;
        if (placed.turned) {
            options.setRotation(QPdfDocumentRenderOptions::Rotation::Clockwise90);
        }
        const QSize size = Pixels(placed.box.width, placed.box.height, scale);
        painter.drawImage(QPointF(placed.box.x, placed.box.y) * scale,
                          pdf_->render(placed.page - 1, size, options));
    }
    painter.end();
    if (picture.grey) image = image.convertToFormat(QImage::Format_Grayscale8);
    Q_EMIT drawn(image, request);
}

}  // namespace kalmo
