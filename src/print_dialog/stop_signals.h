// Ctrl+C and its like, told to the UI thread instead of ending the program at once.
#pragma once

#include <QSocketNotifier>
#include <functional>

namespace kalmo {

/// From construction to destruction SIGINT, SIGTERM and SIGHUP call `stop` on the UI thread. One at
/// a time.
class StopSignals final {
public:
    explicit StopSignals(std::function<void()> stop);
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

private:
    QSocketNotifier notifier_;
};

}  // namespace kalmo
