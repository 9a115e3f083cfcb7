// A job as plain values, and its delivery by a worker: the ticket goes into the document, the
// document to a queue or into a folder.
#pragma once

#include <atomic>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "print_dialog/job_settings.h"
#include "printing/ppd_papers.h"

namespace kalmo {

struct JobOrder {
    std::filesystem::path document;
    std::string name;              // what messages call it
    std::vector<PageRange> pages;  // the document is cut to these; empty: all of it goes
    std::string ticket;            // a ticket file's bytes; empty: the document goes as it is
    std::string title;             // never empty
    std::string queue;             // a queue ...
    std::filesystem::path folder;  // ... or a folder
    std::vector<std::pair<std::string, std::string>> options;
    /// The ticket holds what must not cross a network in clear.
    bool secret = false;
    /// What the printer's options and choices are called, in the user's language.
    std::vector<PPDOptionTexts> texts;
};

enum class JobStage { preparing, sending };

struct JobResult {
    enum class End { printed, failed, cancelled };
    End end = End::failed;
    /// One line: what happened, to what, and what to do. Empty when printed or cancelled.
    std::string message;
    int jobID = 0;  // a queue's job
    /// What the server has of the job other than it was sent: "Staple: One staple was dropped", a
    /// line each. Only of a queue's job that was printed.
    std::vector<std::string> differences;
    std::filesystem::path document;  // a folder's files
    std::filesystem::path ticket;    // empty when the job has none
};

/// Which comes first: the user's wish to cancel, or the moment from which the job stays.
class DeliveryState final {
public:
    [[nodiscard]] bool cancelled() const { return state_ == State::cancelled; }
    /// Both any thread. False when the other one came first.
    bool cancel() { return decide(State::cancelled); }
    [[nodiscard]] bool commit() { return decide(State::committed); }

private:
    enum class State { underWay, cancelled, committed };
    bool decide(State wanted) {
        auto now = State::underWay;
        return state_.compare_exchange_strong(now, wanted) || now == wanted;
    }
    std::atomic<State> state_ = State::underWay;
};

/// What a worker hears and tells while it delivers.
struct DeliveryControl {
    DeliveryState& state;
    /// `percent` 0 .. 100 of the stage; called from the worker.
    std::function<void(JobStage stage, int percent)> progress;
};

/// Blocking, any thread. Cancelled or failed, it leaves no job on the server and no file behind.
[[nodiscard]] JobResult DeliverToFolder(const JobOrder& order, const DeliveryControl& control);
[[nodiscard]] JobResult DeliverToQueue(const JobOrder& order, const DeliveryControl& control);

}  // namespace kalmo
