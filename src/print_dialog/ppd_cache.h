// The user's private copies of queues' PPD files, named for where they come from.
#pragma once

#include <string>

#include "print_dialog/ppd_download.h"

namespace kalmo {

struct PPDSource {
    std::string queue, server;
    int port;
};

struct FetchedPPD {
    std::string path;   // empty: there is none to be had
    std::string error;  // a line for the user: why it is not known whether there is one
    std::string note;   // a line for the user: why it does not come
};

/// Keeps what came whole. Written under a name of its own, so that whoever reads the older copy
/// keeps it. `silence`: the line for a server that fell silent. Blocking, any thread.
[[nodiscard]] FetchedPPD KeepPPD(const PPDSource& source, const DownloadedPPD& ppd,
                                 const std::string& silence);

}  // namespace kalmo
