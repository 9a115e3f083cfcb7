// A queue's PPD file as a print server hands it out: in time and of a sensible size, or not at all.
#pragma once

#include <cups/cups.h>

#include <chrono>
#include <string>

namespace kalmo {

struct DownloadedPPD {
    enum class End {
        whole,
        none,     // the server knows of none
        refused,  // it does not hand it out, or what it hands out is larger than any PPD file
        silent,   // it fails, breaks off, or takes longer than it may
    };
    End end = End::silent;
    std::string bytes;
};

/// Who asks, for a server that wants to know.
enum class Visitor {
    nobody,
    user,  // as far as the system vouches for them without a password
};

/// Of the queue at `resource`, 8 MiB at most. The connection is good for nothing else afterwards.
/// Blocking, for workers.
[[nodiscard]] DownloadedPPD DownloadPPD(http_t* http, const std::string& resource, Visitor visitor,
                                        std::chrono::milliseconds limit);

}  // namespace kalmo
