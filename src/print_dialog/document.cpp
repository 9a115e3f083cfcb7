#include "print_dialog/document.h"

#include "print_dialog/document_worker.h"

namespace kalmo {
namespace {

/// A page that takes longer to draw than this is not worth waiting for when the dialog closes.
constexpr int kPatienceMs = 3000;

}  // namespace

Document::Document(QObject* parent)
    : QObject(parent),
      thread_(std::make_unique<QThread>()),
      worker_(new DocumentWorker(newestPicture_)) {
    worker_->moveToThread(thread_.get());
    connect(thread_.get(), &QThread::finished, worker_, &QObject::deleteLater);
    connect(worker_, &DocumentWorker::opened, this, &Document::finishOpening, Qt::QueuedConnection);
    connect(
        worker_, &DocumentWorker::drawn, this,
        [this](const QImage& picture, int request) {
            if (request == *newestPicture_) Q_EMIT drawn(picture, request);
        },
        Qt::QueuedConnection);
}

Document::~Document() {
    ++*newestPicture_;
    if (!thread_->isRunning()) {
        delete worker_;
        return;
    }
    thread_->quit();
    if (!thread_->wait(kPatienceMs)) static_cast<void>(thread_.release());
}

void Document::open(const std::filesystem::path& file, const std::filesystem::path& name) {
    name_ = name.empty() ? file : name;
    state_ = State::loading;
    fault_ = DocumentFault::none;
    copy_.reset();
    pages_.clear();
    ++*newestPicture_;
    if (!thread_->isRunning()) thread_->start(QThread::LowPriority);
    QMetaObject::invokeMethod(
        worker_, [worker = worker_, opening = ++opening_, file] { worker->open(opening, file); });
    Q_EMIT changed();
}

void Document::finishOpening(int opening, DocumentFault fault,
                             std::shared_ptr<const PrivateCopy> copy, std::vector<PageSize> pages) {
    if (opening != opening_) return;
    fault_ = fault;
    state_ = fault == DocumentFault::none ? State::ready : State::failed;
    copy_ = std::move(copy);
    pages_ = std::move(pages);
    Q_EMIT changed();
}

int Document::draw(const SheetPicture& picture) {
    const int request = ++*newestPicture_;
    if (state_ == State::ready) {
        QMetaObject::invokeMethod(
            worker_, [worker = worker_, request, picture] { worker->draw(request, picture); });
    }
    return request;
}

}  // namespace kalmo
