#include "print_dialog/job.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

#include "print_dialog/print_server.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

/// So long may the server take for one step of the sending.
constexpr int kSilenceMs = 45000;

/// Deliveries under way, so that the program does not end in the middle of one.
class Deliveries final {
public:
    void begin() {
        const std::lock_guard lock(mutex_);
        ++count_;
    }
    void end() {
        const std::lock_guard lock(mutex_);
        --count_;
        changed_.notify_all();
    }
    bool wait(std::chrono::milliseconds limit) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, limit, [this] { return count_ == 0; });
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    int count_ = 0;
};

/// Never destroyed: a worker may outlive main.
Deliveries& RunningDeliveries() {
    static auto& deliveries = *new Deliveries;
    return deliveries;
}

JobResult Deliver(const JobOrder& order, const DeliveryControl& control) {
    try {
        return order.folder.empty() ? DeliverToQueue(order, control)
                                    : DeliverToFolder(order, control);
    } catch (const std::exception& error) {
        return {.message = order.name + ": " + error.what()};
    }
}

}  // namespace

Job::~Job() { state_->cancel(); }

void Job::cancel() {
    if (!state_->cancel()) return;
    answers_.later(0, [this] { finish({.end = JobResult::End::cancelled}); });
}

void Job::advance(JobStage stage, int percent) {
    stage_ = stage;
    ++steps_;
    if (callbacks_.finished && callbacks_.progress) callbacks_.progress(stage, percent);
}

void Job::finish(const JobResult& result) {
    // Taken out first: the callback may destroy this object.
    if (const auto finished = std::exchange(callbacks_.finished, nullptr)) finished(result);
}

void Job::watchSilence() {
    answers_.later(kSilenceMs, [this, seen = steps_] {
        if (!callbacks_.finished) return;
        // Attaching a ticket to a large document takes its time and needs no server.
        if (seen != steps_ || stage_ == JobStage::preparing) return watchSilence();
        if (state_->cancel()) finish({.message = SilentServerLine()});
    });
}

void Job::deliver(JobOrder order) {
    RunningDeliveries().begin();
    StartWorker([this, order = std::move(order), state = state_, post = answers_.post()] {
        const DeliveryControl control = {
            *state, [this, &post](JobStage stage, int percent) {
                post([this, stage, percent] { advance(stage, percent); });
            }};
        post([this, result = Deliver(order, control)] { finish(result); });
        RunningDeliveries().end();
    });
    watchSilence();
}

std::unique_ptr<Job> StartJob(PrintJobHost& host, const JobRequest& request,
                              JobCallbacks callbacks) {
    if (!host.printCheck()) return nullptr;
    const OSStatus status = host.hasPane() ? host.sync(kSyncToTicket) : noErr;
    if (callbacks.approve && !callbacks.approve()) return nullptr;
    std::unique_ptr<Job> job(new Job(std::move(callbacks)));
    JobOrder order;
    auto outcome = MakeJobOrder(host, request, &order);
    if (status != noErr) outcome.error = HostText("Ticket not filled");
    if (outcome) {
        job->deliver(std::move(order));
    } else {
        job->answers_.later(
            0, [job = job.get(), line = outcome.error] { job->finish({.message = line}); });
    }
    return job;
}

bool WaitForDeliveries(int milliseconds) {
    return RunningDeliveries().wait(std::chrono::milliseconds(milliseconds));
}

}  // namespace kalmo
