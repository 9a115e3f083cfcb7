// Work beside the UI thread: reading and decoding pictures, drawing a page, and the answer back.
//
// A thread for each pace serves all workers of it and lives as long as the program, so that the
// fonts it has loaded stay at hand. A worker is its asker's: a pane or a dialog has one of its own.
#pragma once

#include <functional>

#include "kalmo/types.h"

#pragma GCC visibility push(default)

// UI thread only, all three.

/// Quick work is waited for by the user's eye and takes a moment; patient work may take seconds and
/// holds up no quick work.
enum class WorkerPace { quick, patient };
[[nodiscard]] WorkerRef CreateWorker(WorkerPace pace = WorkerPace::quick);
/// What has not begun never will; what runs is finished, and its answer dropped. Does not wait.
/// Null is ignored.
void DisposeWorker(WorkerRef worker);
/// Runs `work` on the thread, which must own all it uses, then `done` on the UI thread. It takes
/// the place of what this worker was asked before and has not begun: of that neither part runs.
/// Nothing may be thrown by either: work that throws has no answer. Nor has any once the
/// application has gone.
void RunOnWorker(WorkerRef worker, std::function<void()> work, std::function<void()> done);

#pragma GCC visibility pop
