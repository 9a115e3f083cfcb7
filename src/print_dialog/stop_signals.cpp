#include "print_dialog/stop_signals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>

namespace kalmo {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

/// A handler may do little more than write to it.
int signalEvent = -1;

void Tell(int) {
    const int number = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(signalEvent, &one, sizeof one);
    errno = number;
}

int OpenEvent() { return signalEvent = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK); }

}  // namespace

StopSignals::StopSignals(std::function<void()> stop)
    : notifier_(OpenEvent(), QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this, stop] {
        notifier_.setEnabled(false);
        stop();
    });
    for (const int number : kSignals) std::signal(number, Tell);
}

StopSignals::~StopSignals() {
    for (const int number : kSignals) std::signal(number, SIG_DFL);
    close(signalEvent);
}

}  // namespace kalmo
