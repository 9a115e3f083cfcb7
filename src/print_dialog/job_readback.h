// Whether a job arrived as it was sent: it is read back from the server and compared.
#pragma once

#include <string>
#include <vector>

#include "print_dialog/job_delivery.h"
#include "print_dialog/print_server.h"

namespace kalmo {

/// The order's options as attributes of a job, in the protocol's types.
void EncodeJobOptions(const JobOrder& order, ipp_t* request);

/// Asks over `http`, where the job was sent, and answers within two seconds: a line in words for
/// each option that the server dropped or changed, the ticket first. Empty when there is none, and
/// when the server does not say in time what it has. Blocking, for workers.
[[nodiscard]] std::vector<std::string> JobDifferences(const JobOrder& order, int job,
                                                      HttpConnection http);

/// The same of an answer that has come.
[[nodiscard]] std::vector<std::string> DifferencesFrom(const JobOrder& order, ipp_t* answer);

}  // namespace kalmo
