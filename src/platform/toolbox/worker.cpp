#include "toolbox/worker.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <condition_variable>
#include <list>
#include <memory>
#include <mutex>
#include <thread>

struct OpaqueWorker {
    WorkerPace pace;
    /// False once disposed. Read and written on the UI thread only.
    std::shared_ptr<bool> waits = std::make_shared<bool>(true);
};

namespace toolbox {
namespace {

struct Job {
    std::shared_ptr<const bool> askerWaits;
    std::function<void()> work, done;
    bool isWorkDone = false;
};

/// Frees what the work holds before the answer is on its way. An answer to nothing is dropped.
void Work(Job& job) {
    try {
        job.work();
        job.isWorkDone = true;
    } catch (...) {
    }
    job.work = nullptr;
}

/// Carries a job to the UI thread, where what it holds is freed whether it is wanted or not: a
/// functor in a queued call might be freed by the thread that queued it.
class Answer final : public QEvent {
public:
    explicit Answer(Job job) : QEvent(QEvent::User), job_(std::move(job)) {}

    void give() const {
        if (job_.isWorkDone && *job_.askerWaits && job_.done) job_.done();
    }

private:
    Job job_;
};

class Answered final : public QObject {
protected:
    void customEvent(QEvent* event) override { static_cast<const Answer*>(event)->give(); }
};

/// The thread with its queue of at most one job per worker. Destroying it waits for the job that
/// runs, and drops the others and the answers not yet given.
class WorkThread final {
public:
    /// Takes the place in the queue, too, of what the same worker asked before.
    void ask(Job job) {
        const std::lock_guard lock(mutex_);
        const auto replaced = std::ranges::find(queue_, job.askerWaits, &Job::askerWaits);
        if (replaced != queue_.end()) {
            std::swap(*replaced, job);  // its functions are freed without the lock
        } else {
            queue_.push_back(std::move(job));
            asked_.notify_one();
        }
    }

    void forget(const OpaqueWorker& asker) {
        std::list<Job> forgotten;  // freed without the lock
        const std::lock_guard lock(mutex_);
        const auto job = std::ranges::find(queue_, asker.waits, &Job::askerWaits);
        if (job != queue_.end()) forgotten.splice(forgotten.end(), queue_, job);
    }

private:
    void serve(const std::stop_token& stop) {
        std::unique_lock lock(mutex_);
        const auto isAsked = [this] { return !queue_.empty(); };
        while (asked_.wait(lock, stop, isAsked) && !stop.stop_requested()) {
            Job job = std::move(queue_.front());
            queue_.pop_front();
            lock.unlock();
            Work(job);
            QCoreApplication::postEvent(&answered_, new Answer(std::move(job)));
            lock.lock();
        }
    }

    Answered answered_;
    std::mutex mutex_;
    std::condition_variable_any asked_;
    std::list<Job> queue_;
    std::jthread thread_{[this](const std::stop_token& stop) { serve(stop); }};
};

/// One thread for each pace.
std::unique_ptr<WorkThread>& Running(WorkerPace pace) {
    static std::unique_ptr<WorkThread> threads[2];
    return threads[static_cast<int>(pace)];
}

/// It ends with the application, before anything static that the work may use is destroyed.
template <WorkerPace pace>
WorkThread& Started() {
    if (!Running(pace)) {
        Running(pace) = std::make_unique<WorkThread>();
        qAddPostRoutine([] { Running(pace) = nullptr; });
    }
    return *Running(pace);
}

WorkThread& StartedThread(WorkerPace pace) {
    return pace == WorkerPace::quick ? Started<WorkerPace::quick>()
                                     : Started<WorkerPace::patient>();
}

}  // namespace
}  // namespace toolbox

using namespace toolbox;

WorkerRef CreateWorker(WorkerPace pace) { return new OpaqueWorker{pace}; }

void DisposeWorker(WorkerRef worker) {
    if (!worker) return;
    *worker->waits = false;
    if (const auto& thread = Running(worker->pace)) thread->forget(*worker);
    delete worker;
}

void RunOnWorker(WorkerRef worker, std::function<void()> work, std::function<void()> done) {
    if (!worker || !QCoreApplication::instance()) return;
    StartedThread(worker->pace).ask({worker->waits, std::move(work), std::move(done)});
}
