// The document: its page sizes, and its sheets as pictures, both from a thread of its own.
//
// Opening and drawing may take long and happen there only; the object itself lives on the UI
// thread.
#pragma once

#include <QImage>
#include <QObject>
#include <QThread>
#include <atomic>
#include <filesystem>
#include <memory>
#include <vector>

#include "print_dialog/private_copy.h"
#include "print_dialog/sheet_layout.h"

namespace kalmo {

class DocumentWorker;

enum class DocumentFault {
    none,
    unreadable,  // no file that can be read
    damaged,     // not a PDF file, or one without pages
    locked,      // a password is needed
};

/// How a sheet is drawn.
struct SheetPicture {
    Sheet sheet;
    double pixelsPerPoint = 1;
    bool grey = false;
};

class Document final : public QObject {
    Q_OBJECT
public:
    enum class State { none, loading, ready, failed };

    explicit Document(QObject* parent = nullptr);
    ~Document() override;

    /// Takes a copy of `file` and reads that. changed() follows now (loading) and once more.
    /// `name`: what messages call it; empty: its own.
    void open(const std::filesystem::path& file, const std::filesystem::path& name = {});

    [[nodiscard]] State state() const { return state_; }
    [[nodiscard]] DocumentFault fault() const { return fault_; }
    /// What messages call the one that was opened last.
    [[nodiscard]] std::string name() const { return name_.filename().string(); }
    /// The bytes that are shown, to be printed; null unless ready.
    [[nodiscard]] const std::shared_ptr<const PrivateCopy>& copy() const { return copy_; }
    /// Empty unless ready.
    [[nodiscard]] const std::vector<PageSize>& pages() const { return pages_; }

    /// Asks for a picture; drawn() brings it unless a newer request replaces this one. The number
    /// returned comes back with it. At most 16 million pixels, smaller than asked otherwise.
    int draw(const SheetPicture& picture);

Q_SIGNALS:
    void changed();
    void drawn(const QImage& picture, int request);

private:
    void finishOpening(int opening, DocumentFault fault, std::shared_ptr<const PrivateCopy> copy,
                       std::vector<PageSize> pages);

    State state_ = State::none;
    DocumentFault fault_ = DocumentFault::none;
    std::filesystem::path name_;
    std::shared_ptr<const PrivateCopy> copy_;
    std::vector<PageSize> pages_;
    int opening_ = 0;
    /// The newest request of each kind; the worker passes over older ones.
    std::shared_ptr<std::atomic<int>> newestPicture_ = std::make_shared<std::atomic<int>>(0);
    std::unique_ptr<QThread> thread_;
    DocumentWorker* worker_ = nullptr;  // lives and dies on the thread
};

}  // namespace kalmo
