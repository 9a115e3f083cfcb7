#include "print_dialog/background.h"

#include <QObject>
#include <QTimer>
#include <atomic>
#include <mutex>
#include <thread>

namespace kalmo {
namespace {

std::atomic<int> runningWorkers = 0;

}  // namespace

struct AnswerBox::Shared {
    std::mutex mutex;
    std::unique_ptr<QObject> receiver = std::make_unique<QObject>();
};

AnswerBox::AnswerBox() : shared_(std::make_shared<Shared>()) {}

AnswerBox::~AnswerBox() {
    std::unique_ptr<QObject> receiver;
    const std::lock_guard lock(shared_->mutex);
    receiver = std::move(shared_->receiver);
}

AnswerBox::Post AnswerBox::post() const {
    return [shared = shared_](std::function<void()> answer) {
        const std::lock_guard lock(shared->mutex);
        if (shared->receiver) {
            QMetaObject::invokeMethod(shared->receiver.get(), std::move(answer),
                                      Qt::QueuedConnection);
        }
    };
}

void AnswerBox::later(int milliseconds, std::function<void()> action) {
    QTimer::singleShot(milliseconds, shared_->receiver.get(), std::move(action));
}

void StartWorker(std::function<void()> work) {
    ++runningWorkers;
    std::thread([work = std::move(work)]() mutable {
        work();
        work = nullptr;
        --runningWorkers;
    }).detach();
}

int RunningWorkers() { return runningWorkers; }

}  // namespace kalmo
