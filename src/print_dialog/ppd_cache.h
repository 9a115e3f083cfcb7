// The user's private copies of queues' PPD files, named for where they come from.
#pragma once

#include <functional>
#include <string>

namespace kalmo {

struct PPDSource {
    std::string queue, server;
    int port;
};

enum class FetchEnd { whole, none, failed };

struct FetchedPPD {
    std::string path;   // empty: the queue has none
    std::string error;  // a line for the user
};

/// `fetch` writes into the open file that it is given. Written under a name of its own, so that
/// whoever reads the older copy keeps it whole. `failure`: the line for FetchEnd::failed. Blocking,
/// any thread.
[[nodiscard]] FetchedPPD KeepPPD(const PPDSource& source,
                                 const std::function<FetchEnd(int file)>& fetch,
                                 const std::string& failure);

}  // namespace kalmo
