// Answers that come in time, or not at all.
#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <utility>

#include "print_dialog/background.h"

namespace kalmo {

/// Blocking, for workers. What `work` returns; nothing when it takes longer or throws. It runs on a
/// thread of its own, which then goes on alone: it must own all that it uses.
template <typename Result>
std::optional<Result> AnswerWithin(std::chrono::milliseconds limit, std::function<Result()> work) {
    auto task = std::make_shared<std::packaged_task<Result()>>(std::move(work));
    auto answer = task->get_future();
    StartWorker([task = std::move(task)] { (*task)(); });
    if (answer.wait_for(limit) != std::future_status::ready) return std::nullopt;
    try {
        return answer.get();
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}  // namespace kalmo
