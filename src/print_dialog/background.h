// Work on threads of its own, answers on the UI thread.
//
// A worker owns copies of all it needs and may outlive who asked: an answer that nobody waits for
// any more is dropped.
#pragma once

#include <functional>
#include <memory>

class QObject;

namespace kalmo {

/// Where answers arrive. Made, used and destroyed on the UI thread.
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

private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
};

/// Runs `work` on a thread that nobody waits for.
void StartWorker(std::function<void()> work);

}  // namespace kalmo
