// From the Print button to the printer: the print check, the Sync towards the ticket, then the job
// on a worker. The only way a job is made, with a window and without.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "print_dialog/background.h"
#include "print_dialog/job_settings.h"
#include "print_dialog/print_job_host.h"

namespace kalmo {

struct JobRequest {
    std::filesystem::path document;
    /// How most of the document stands; the printer turns the pages when the job wants another.
    Orientation documentOrientation = Orientation::portrait;
    std::string queue;             // a queue ...
    std::filesystem::path folder;  // ... or a folder to print into
};

enum class JobStage { preparing, sending };

struct JobResult {
    enum class End { printed, failed, cancelled };
    End end = End::failed;
    /// One line: what happened, to what, and what to do. Empty when cancelled.
    std::string message;
    int jobID = 0;                   // a queue's job
    std::filesystem::path document;  // a folder's files
    std::filesystem::path ticket;
};

/// Both run on the UI thread; `finished` exactly once, unless the job object goes first.
struct JobCallbacks {
    /// `percent` 0 .. 100 of the stage.
    std::function<void(JobStage stage, int percent)> progress;
    std::function<void(const JobResult& result)> finished;
};

/// A job on its way. Destroying it cancels.
class Job final {
public:
    ~Job();
    /// No job stays on the server and no file behind; `finished` follows at once.
    void cancel();

private:
    friend std::unique_ptr<Job> StartJob(PrintJobHost&, const JobRequest&, JobCallbacks);
    struct Shared;
    Job();
    std::shared_ptr<Shared> shared_;
    AnswerBox answers_;
};

/// Null: the print check refused, the pane has said why, and nothing was written. Without a pane
/// (another maker's queue) the job goes without a ticket. Must be called on the UI thread.
[[nodiscard]] std::unique_ptr<Job> StartJob(PrintJobHost& host, const JobRequest& request,
                                            JobCallbacks callbacks);

}  // namespace kalmo
