// What the user decided, as a job: the ticket's bytes and the job options.
#pragma once

#include <filesystem>
#include <string>

#include "print_dialog/job_delivery.h"
#include "print_dialog/job_settings.h"
#include "print_dialog/print_job_host.h"
#include "print_dialog/sheet_layout.h"

namespace kalmo {

struct JobRequest {
    std::filesystem::path document;
    std::string name;  // what messages call it
    /// Of the document with the host's settings.
    SheetLayout layout;
    std::string queue;             // a queue ...
    std::filesystem::path folder;  // ... or a folder to print into
};

/// The session's tickets must be up to date. A ticket with a fresh nonce goes into the order when a
/// pane lives, else none; its absence where it should be is the error.
Outcome MakeJobOrder(const PrintJobHost& host, const JobRequest& request, JobOrder* order);

}  // namespace kalmo
