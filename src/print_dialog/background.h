// Work on threads of its own, answers on the UI thread.
//
// A worker owns copies of all it needs and may outlive who asked: an answer that nobody waits for
// any more is dropped.
#pragma once

#include <functional>
#include <memory>

namespace kalmo {

/// Where answers arrive. Made, used and destroyed on the UI thread, while an application exists.
class AnswerBox final {
public:
    AnswerBox();
    ~AnswerBox();
    AnswerBox(const AnswerBox&) = delete;
    AnswerBox& operator=(const AnswerBox&) = delete;

    /// Any thread may call it, at any time; `answer` then runs on the UI thread, unless the box is
    /// gone.
    using Post = std::function<void(std::function<void()> answer)>;
    [[nodiscard]] Post post() const;
    /// Runs `action` on the UI thread in `milliseconds`, unless the box is gone.
    void later(int milliseconds, std::function<void()> action);

private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
};

/// Runs `work` on a thread that nobody waits for.
void StartWorker(std::function<void()> work);
/// Workers that are still at it, a stuck request among them.
[[nodiscard]] int RunningWorkers();

}  // namespace kalmo
