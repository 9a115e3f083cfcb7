#include "toolbox/waiting.h"

#include <unistd.h>

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <thread>

#include "system/presence.h"
#include "toolbox/control_state.h"
#include "toolbox/modal_loop.h"
#include "toolbox/qt_strings.h"

namespace toolbox {
namespace {

constexpr std::chrono::milliseconds kUnseen{300};  // so that short work does not flicker
constexpr int kWidthInCharacters = 44;

std::unique_ptr<QWidget> MakeWindow(const WaitTexts& texts) {
    const QString message = ToQString(texts.message);
    auto window = std::make_unique<QWidget>(nullptr, Qt::Dialog);
    window->setWindowTitle(QApplication::applicationDisplayName());
    window->setAccessibleName(message);
    auto* const label = new QLabel(message);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    auto* const bar = new QProgressBar;
    bar->setRange(0, 0);
    bar->setAccessibleName(message);
    bar->setMinimumWidth(kWidthInCharacters * bar->fontMetrics().averageCharWidth());
    auto* const cancel = new QPushButton(ToQString(texts.cancelButton));
    cancel->setAccessibleDescription(message);
    StateOf(*cancel).command = kCommandCancel;
    auto* const rows = new QVBoxLayout(window.get());
    rows->addWidget(label);
    rows->addWidget(bar);
    rows->addWidget(cancel, 0, Qt::AlignRight);
    cancel->setFocus();
    window->adjustSize();
    return window;
}

std::atomic<int> threadsLeft = 0;  // that nobody waits for any more

/// What such a thread still uses must not be destroyed under its hands.
void ExitAtOnce(int status, void*) {
    if (threadsLeft == 0) return;
    std::fflush(nullptr);
    _exit(status);
}

/// A thread that ends `loop` when its work is done. Destroying it waits for the thread, unless it
/// was left to itself.
class WaitedWork final {
public:
    WaitedWork(std::function<void(std::stop_token)> work, ModalLoop& loop)
        : meeting_(std::make_shared<Meeting>(&loop)),
          thread_(
              [work = std::move(work), meeting = meeting_](const std::stop_token& stop) mutable {
                  Run(work, stop);
                  work = nullptr;  // who waited may use alone what it held
                  meeting->workIsDone();
              }) {}

    void leave() {
        thread_.request_stop();
        if (meeting_->leaveWork()) thread_.detach();
    }

private:
    static void Run(const std::function<void(std::stop_token)>& work, const std::stop_token& stop) {
        try {
            work(stop);
        } catch (...) {
        }
    }

    /// Which of the two is the first to go.
    class Meeting final {
    public:
        explicit Meeting(ModalLoop* loop) : loop_(loop) {}

        void workIsDone() {
            const std::lock_guard lock(mutex_);
            isDone_ = true;
            if (!loop_) {
                --threadsLeft;
                return;
            }
            const auto quit = [loop = loop_] { loop->quit(kModalOK); };
            QMetaObject::invokeMethod(loop_, quit, Qt::QueuedConnection);
        }

        /// False when the work is done.
        [[nodiscard]] bool leaveWork() {
            const std::lock_guard lock(mutex_);
            if (isDone_) return false;
            loop_ = nullptr;
            ++threadsLeft;
            on_exit(ExitAtOnce, nullptr);  // anew, to come before what was made meanwhile
            return true;
        }

    private:
        std::mutex mutex_;
        ModalLoop* loop_;  // null once nobody waits
        bool isDone_ = false;
    };

    std::shared_ptr<Meeting> meeting_;
    std::jthread thread_;
};

}  // namespace
}  // namespace toolbox

using namespace toolbox;

bool RunAndWait(const WaitTexts& texts, std::function<void(std::stop_token)> work) {
    if (!CurrentPresence().modalLoopsRun) return work({}), true;
    const std::unique_ptr<QWidget> window = MakeWindow(texts);
    ModalLoop loop(*window);
    WaitedWork waited(std::move(work), loop);
    if (loop.run(nullptr, kUnseen) == kModalOK) return true;
    waited.leave();
    return false;
}
