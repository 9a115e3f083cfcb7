// Which of many queues have a pane, asked of the server without its thousand PPD files.
//
// Queues of one make and model have the same PPD file: the first that is read decides for all.
// Those that stand for another server's queue have its PPD file, and are asked one by one.
#pragma once

#include <QEventLoop>
#include <array>
#include <map>
#include <string>
#include <vector>

#include "print_dialog/printers.h"

namespace kalmo {

/// "yes", "no, REASON"; "unknown, REASON" when the queue cannot be had.
[[nodiscard]] std::string PaneOf(const PrinterDescription& queue);

class PaneSurvey final {
public:
    /// Borrowed for its life.
    explicit PaneSurvey(const std::vector<PrinterEntry>& queues) : queues_(queues) {}

    /// As PaneOf says, for each queue in their order; runs the event loop until all have answered,
    /// or for `milliseconds`.
    [[nodiscard]] std::vector<std::string> run(int milliseconds);

private:
    /// At a time; a server that is far away answers several as fast as one.
    static constexpr std::size_t kAskers = 4;

    void askNext(Printers& asker);
    void take(const PrinterEntry& queue, const PrinterDescription& description);
    [[nodiscard]] bool isKnown(const PrinterEntry& queue) const;
    [[nodiscard]] std::string answerFor(const PrinterEntry& queue) const;

    const std::vector<PrinterEntry>& queues_;
    std::size_t next_ = 0, busy_ = 0;
    std::map<std::string, std::string> byModel_, byName_;
    QEventLoop loop_;
    std::array<Printers, kAskers> askers_;
};

}  // namespace kalmo
