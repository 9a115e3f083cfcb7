#include "contacts/desktop_thread.h"

#include <thread>

namespace contacts {
namespace {

/// What the desktop's own calls never reach: they give up after 25 seconds, or 3 minutes.
constexpr std::chrono::milliseconds kForever = std::chrono::hours(1);

Answer Run(const DesktopThread::Errand& errand, AddressBook& book) {
    try {
        return errand(book);
    } catch (...) {
        return {Code::failed, "out of memory while asking the desktop's address book"};
    }
}

}  // namespace

void Reply::give(Answer answer) {
    const std::lock_guard lock(mutex_);
    answer_ = std::move(answer);
    given_.notify_all();
}

std::optional<Answer> Reply::wait(std::chrono::milliseconds limit, const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    given_.wait_for(lock, stop, limit, [this] { return answer_.has_value(); });
    return answer_;
}

struct DesktopThread::Shared {
    struct Task {
        Errand errand;
        std::shared_ptr<Reply> reply;
    };

    /// Nothing once nobody can ask any more.
    std::optional<Task> next() {
        std::unique_lock lock(mutex);
        if (!changed.wait(lock, closing.get_token(), [this] { return !tasks.empty(); })) return {};
        if (closing.stop_requested()) return {};
        Task task = std::move(tasks.front());
        tasks.pop_front();
        return task;
    }

    Reply opened;
    std::stop_source closing;
    std::mutex mutex;
    std::condition_variable_any changed;
    std::deque<Task> tasks;
};

DesktopThread::DesktopThread(Open open) : shared_(std::make_shared<Shared>()) {
    std::thread([shared = shared_, open = std::move(open)] { Serve(shared, open); }).detach();
}

DesktopThread::~DesktopThread() { shared_->closing.request_stop(); }

void DesktopThread::Serve(const std::shared_ptr<Shared>& shared, const Open& open) {
    Answer why;
    std::unique_ptr<AddressBook> book;
    try {
        book = open(shared->closing.get_token(), why);
    } catch (...) {
        why = {Code::unavailable, "out of memory while opening the desktop's address book"};
    }
    shared->opened.give(why);
    if (!book) return;
    while (const auto task = shared->next()) task->reply->give(Run(task->errand, *book));
}

std::optional<Answer> DesktopThread::opened(std::chrono::milliseconds limit,
                                            const std::stop_token& stop) {
    return shared_->opened.wait(limit, stop);
}

std::optional<Answer> DesktopThread::ask(Errand errand, const std::stop_token& stop) {
    const auto reply = std::make_shared<Reply>();
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->tasks.push_back({std::move(errand), reply});
    }
    shared_->changed.notify_one();
    return reply->wait(kForever, stop);
}

}  // namespace contacts
