// Queues that stand for one on another print server: which one, and its PPD file.
#pragma once

#include <optional>
#include <string>

#include "print_dialog/ppd_cache.h"

namespace kalmo {

struct RemoteQueue {
    std::string host;
    int port = 0;
    std::string resource;  // "/printers/NAME" or "/classes/NAME"
    bool encrypted = false;
    [[nodiscard]] std::string name() const;
};

/// From the device of a queue: an ipp or ipps address of another server's queue. Nothing for any
/// other device, a printer that speaks the protocol itself among them.
[[nodiscard]] std::optional<RemoteQueue> RemoteQueueOf(const std::string& device);

/// The machine that the jobs of a queue on this device go on to in clear, to a queue of another
/// server there, or that queue's name in the network. Empty where they stay here, go encrypted, or
/// the device is any other.
[[nodiscard]] std::string ClearHostOf(const std::string& device);

/// Asks the other server, which gets neither password nor name, is followed nowhere else, and has
/// 2.5 seconds for all of it. Empty without a line: it has no such file.
/// Blocking, for workers.
[[nodiscard]] FetchedPPD FetchRemotePPD(const RemoteQueue& queue);

}  // namespace kalmo
