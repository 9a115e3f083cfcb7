// A Presence with windows whose beeps are counted.
#pragma once

#include "toolbox/host.h"

namespace kalmo::test {

/// As long as it lives.
class CountedBeeps final {
public:
    CountedBeeps() {
        Presence presence = WindowPresence();
        presence.beep = [this] { ++count_; };
        InstallPresence(std::move(presence));
    }
    ~CountedBeeps() { InstallPresence(UnattendedPresence()); }

    /// Since the last call.
    [[nodiscard]] int take() { return std::exchange(count_, 0); }

private:
    int count_ = 0;
};

}  // namespace kalmo::test
