#include "toolbox/worker.h"

#include <semaphore>

#include "support/qt_test.h"

namespace kalmo::test {
namespace {

TEST(Worker, NewestJobOfEachWinsAndTheDisposedGetNoAnswer) {
    const WorkerRef running = CreateWorker(), waiting = CreateWorker(), asker = CreateWorker();
    std::string works, answers;
    std::binary_semaphore begun{0}, free{0};
    const auto ask = [&](WorkerRef worker, char letter, const std::function<void()>& work) {
        const auto run = [&works, letter, work] { works += letter, work(); };
        RunOnWorker(worker, run, [&answers, letter] { answers += letter; });
    };
    ask(running, 'a', [&] { begun.release(), free.acquire(); });
    begun.acquire();
    ask(waiting, 'b', [] {});
    ask(asker, 'c', [] {});
    ask(asker, 'd', [] {});
    DisposeWorker(running);
    DisposeWorker(waiting);
    free.release();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !answers.empty(); }));
    ask(asker, 'e', [&] { begun.release(), throw std::runtime_error("dropped"); });
    begun.acquire();
    RunOnWorker(
        asker, [] {}, [&] { DisposeWorker(asker), answers += 'f'; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers.ends_with('f'); }));
    EXPECT_EQ(works, "ade");
    EXPECT_EQ(answers, "df");
}

}  // namespace
}  // namespace kalmo::test
