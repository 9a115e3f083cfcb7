// From the Print button to the printer: the print check, the Sync towards the ticket, then the job
// on a worker. The only way a job is made, with a window and without.
#pragma once

#include <functional>
#include <memory>

#include "print_dialog/background.h"
#include "print_dialog/job_delivery.h"
#include "print_dialog/job_order.h"
#include "print_dialog/print_job_host.h"

namespace kalmo {

/// All run on the UI thread; all but `approve` later than StartJob returns.
struct JobCallbacks {
    /// Asked within StartJob once the tickets hold the job, before anything is written. False: it
    /// is not printed. May be empty.
    std::function<bool()> approve;
    /// `percent` 0 .. 100 of the stage. May be empty.
    std::function<void(JobStage stage, int percent)> progress;
    /// Exactly once, unless the job object goes first.
    std::function<void(const JobResult& result)> finished;
};

/// A job on its way. Destroying it before it has finished cancels it.
class Job final {
public:
    ~Job();
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;
    /// No job stays on the server and no file behind. `finished` follows at once with "cancelled";
    /// the cleaning up goes on in the background (WaitForDeliveries). Too late, it does nothing.
    void cancel();

private:
    friend std::unique_ptr<Job> StartJob(PrintJobHost& host, const JobRequest& request,
                                         JobCallbacks callbacks);
    explicit Job(JobCallbacks callbacks) : callbacks_(std::move(callbacks)) {}
    void deliver(JobOrder order);
    void advance(JobStage stage, int percent);
    void finish(const JobResult& result);
    void watchSilence();

    JobCallbacks callbacks_;
    std::shared_ptr<DeliveryState> state_ = std::make_shared<DeliveryState>();
    JobStage stage_ = JobStage::preparing;
    int steps_ = 0;
    AnswerBox answers_;  // last: goes first, so that no answer meets half an object
};

/// Null: the print check refused and the pane has said why, or it was not approved; nothing was
/// written. Without a pane
/// (another maker's queue) the job goes without a ticket. On the UI thread.
[[nodiscard]] std::unique_ptr<Job> StartJob(PrintJobHost& host, const JobRequest& request,
                                            JobCallbacks callbacks);

/// Lets deliveries, cancelled ones too, come to their end before the program's. False when one is
/// still at it after so many milliseconds.
[[nodiscard]] bool WaitForDeliveries(int milliseconds);

}  // namespace kalmo
