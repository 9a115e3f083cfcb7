// A desktop session for one test: a bus of its own, with or without an address book service.
#pragma once

#include <csignal>

#include "contacts/address_book.h"
#include "support/programs.h"
#include "support/test.h"

namespace kalmo::test {

/// What the bus can start.
enum class Services { none, installed, hanging };

/// The environment leads to this bus, with folders of its own for what the services store. All that
/// was started ends with it.
class PrivateDesktop {
public:
    explicit PrivateDesktop(Services services);
    ~PrivateDesktop();

    void endBus() const { bus_->signal(SIGTERM); }
    /// What the service's own tool finds in the default address book: vCards.
    [[nodiscard]] static std::string exported();
    void killAddressBookService() const;

private:
    [[nodiscard]] std::vector<pid_t> started() const;

    std::string socket_;
    std::unique_ptr<Program> bus_;
};

/// Exits with a failure when one was noted. The desktop's libraries keep state as long as a process
/// lives, and its end is part of what is tested.
void InOwnProcess(const std::function<void()>& scenario);

/// How long it took.
[[nodiscard]] std::chrono::milliseconds TimeOf(const std::function<void()>& work);

}  // namespace kalmo::test
