#include "temporary_folder.h"

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>
#include <thread>

namespace kalmo {
namespace {

void Remove(const std::filesystem::path& folder) {
    std::error_code ignored;
    if (!folder.empty()) std::filesystem::remove_all(folder, ignored);
}

sigset_t BlockEndingSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&signals, signal);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

// A thread that waits for the signal may call anything; a signal handler may not.
void RemoveOnSignal(const sigset_t& signals, const std::filesystem::path& folder) {
    std::thread([signals, folder] {
        int received = 0;
        sigwait(&signals, &received);
        Remove(folder);
        _exit(1);
    }).detach();
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
    const sigset_t signals = BlockEndingSignals();
    std::error_code ignored;
    std::string pattern =
        (std::filesystem::temp_directory_path(ignored) / "kalmoticket-XXXXXX").string();
    if (mkdtemp(pattern.data())) path_ = pattern;
    RemoveOnSignal(signals, path_);
}

TemporaryFolder::~TemporaryFolder() { Remove(path_); }

}  // namespace kalmo
