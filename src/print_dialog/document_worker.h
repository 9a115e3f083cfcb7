// The document's thread: QtPdf behind two calls.
#pragma once

#include <QFile>
#include <QImage>
#include <QObject>
#include <QPdfDocument>
#include <atomic>
#include <memory>

#include "print_dialog/document.h"

namespace kalmo {

/// Everything but the constructor runs on the worker's thread.
class DocumentWorker final : public QObject {
    Q_OBJECT
public:
    /// `newestPicture` is the number of the last picture that was asked for.
    explicit DocumentWorker(std::shared_ptr<const std::atomic<int>> newestPicture);

    void open(int opening, const std::filesystem::path& file);
    void draw(int request, const SheetPicture& picture);

Q_SIGNALS:
    void opened(int opening, kalmo::DocumentFault fault,
                std::shared_ptr<const kalmo::PrivateCopy> copy, std::vector<kalmo::PageSize> pages);
    void drawn(const QImage& picture, int request);

private:
    [[nodiscard]] DocumentFault load(const std::filesystem::path& file);
    [[nodiscard]] std::vector<PageSize> pageSizes() const;
    [[nodiscard]] bool isStale(int request) const { return request != newestPicture_->load(); }

    std::shared_ptr<const std::atomic<int>> newestPicture_;
    std::shared_ptr<const PrivateCopy> copy_;
    std::unique_ptr<QFile> bytes_;
    std::unique_ptr<QPdfDocument> pdf_;  // reads from bytes_
};

}  // namespace kalmo
