// Waits until the work beside the UI thread is done.
#pragma once

#include <QCoreApplication>

#include "toolbox/worker.h"

namespace kalmo::test {

/// Everything asked of workers so far is done and answered: those of one pace are served in the
/// order of asking.
inline void WaitForWorkers() {
    for (const WorkerPace pace : {WorkerPace::quick, WorkerPace::patient}) {
        bool reached = false;
        const WorkerRef worker = CreateWorker(pace);
        RunOnWorker(
            worker, [] {}, [&] { reached = true; });
        while (!reached) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        DisposeWorker(worker);
    }
}

}  // namespace kalmo::test
