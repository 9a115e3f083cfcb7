// The print server's queues and their PPD files, asked for by workers.
//
// Everything a server is asked has a deadline, and a server that does not answer is an answer too.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "print_dialog/background.h"

namespace kalmo {

struct PrinterEntry {
    std::string name;
    std::string info, location, makeAndModel;
    std::string stateMessage;
    bool isDefault = false;
    bool accepting = true;
    bool stopped = false;
};

struct PrinterList {
    std::vector<PrinterEntry> printers;  // by name
    /// One line for the user when the server did not answer; the list is then empty.
    std::string error;
};

/// What the dialog needs to open a queue.
struct PrinterDescription {
    std::string name;
    std::string makeAndModel;
    /// A private copy of the queue's PPD file; empty for a queue without one.
    std::string ppdPath;
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
    template <typename Result>
    void ask(std::uint64_t& generation, std::function<Result()> work, Result late,
             std::function<void(const Result&)> answer);

    std::uint64_t listGeneration_ = 0;
    std::uint64_t descriptionGeneration_ = 0;
    AnswerBox answers_;  // last: goes first, so that no answer meets half an object
};

/// The longest that a request may keep the user waiting.
inline constexpr int kServerDeadlineMs = 8000;

}  // namespace kalmo
