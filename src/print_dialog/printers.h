// The print server's queues and their PPD files, asked for by workers.
//
// Everything a server is asked has a deadline, and a server that does not answer is an answer too.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "print_dialog/background.h"
#include "print_dialog/destination.h"

namespace kalmo {

/// The longest that a request may keep the user waiting.
inline constexpr int kServerDeadlineMs = 8000;

struct PrinterEntry {
    std::string name;
    std::string info, location, makeAndModel;
    std::string stateMessage;
    bool isDefault = false;
    bool accepting = true;
    bool stopped = false;
    bool isElsewhere = false;  // stands for a queue of another print server
};

struct PrinterList {
    std::vector<PrinterEntry> printers;  // by name
    /// The same as the user sees them.
    std::vector<Destination> destinations;
    /// One line for the user when the server did not answer; the list is then empty.
    std::string error;
};

/// What the dialog needs to open a queue.
struct PrinterDescription {
    std::string name;
    std::string makeAndModel;
    /// A private copy of the queue's PPD file; empty for a queue without one.
    std::string ppdPath;
    /// One line for the user about a PPD file that there is, but does not come.
    std::string note;
    /// The other machine that its jobs go on to unencrypted; empty for none that is known of.
    std::string clearHost;
    /// One line for the user when the queue cannot be had; the rest is then empty.
    std::string error;
};

/// All on the UI thread; nothing here waits. A newer request replaces an older one of its kind,
/// whose answer is dropped.
class Printers final {
public:
    using ListAnswer = std::function<void(const PrinterList&)>;
    using DescriptionAnswer = std::function<void(const PrinterDescription&)>;

    /// `answer` comes exactly once unless replaced, at the latest after kServerDeadlineMs.
    void list(ListAnswer answer);
    void describe(const std::string& queue, DescriptionAnswer answer);

private:
    /// Who waits for an answer; `generation` tells a late answer from the one that is awaited.
    template <typename Result>
    struct Waiting {
        std::uint64_t generation = 0;
        std::function<void(const Result&)> answer;
    };
    template <typename Result>
    void ask(Waiting<Result>& waiting, std::function<Result()> work,
             std::function<void(const Result&)> answer);
    template <typename Result>
    void deliver(Waiting<Result>& waiting, std::uint64_t generation, const Result& result);

    Waiting<PrinterList> list_;
    Waiting<PrinterDescription> description_;
    AnswerBox answers_;  // last: goes first, so that no answer meets half an object
};

}  // namespace kalmo
