// A thread that serves the desktop's address book and outlives, where it must, all who asked it.
//
// What it calls may hang for half a minute and cannot be interrupted. So the thread is detached and
// owns everything it uses; who asks waits no longer than until its stop is requested, and a program
// that ends does not wait at all.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include "contacts/address_book.h"

namespace contacts {

/// An answer that one thread gives and another waits for.
class Reply {
public:
    void give(Answer answer);
    /// Nothing when the stop or the end of the time came first.
    [[nodiscard]] std::optional<Answer> wait(std::chrono::milliseconds limit,
                                             const std::stop_token& stop);

private:
    std::mutex mutex_;
    std::condition_variable_any given_;
    std::optional<Answer> answer_;
};

class DesktopThread {
public:
    using Open = std::function<std::unique_ptr<AddressBook>(const std::stop_token&, Answer& why)>;
    /// Owns all it uses: who asked may be gone when it runs.
    using Errand = std::function<Answer(AddressBook&)>;

    /// Starts the thread, whose first act is to open the book. Throws std::system_error where no
    /// thread can be had.
    explicit DesktopThread(Open open);
    /// Asks the opening to stop and forgets the errands that wait. Never blocks.
    ~DesktopThread();
    DesktopThread(const DesktopThread&) = delete;
    DesktopThread& operator=(const DesktopThread&) = delete;

    /// Whether the book is open, or why it is not. Nothing when it is not known in time.
    [[nodiscard]] std::optional<Answer> opened(std::chrono::milliseconds limit,
                                               const std::stop_token& stop);
    /// Has the errand run after those before it. Nothing when the stop came first; it may run yet.
    [[nodiscard]] std::optional<Answer> ask(Errand errand, const std::stop_token& stop);

private:
    struct Shared;
    static void Serve(const std::shared_ptr<Shared>& shared, const Open& open);
    std::shared_ptr<Shared> shared_;
};

}  // namespace contacts
