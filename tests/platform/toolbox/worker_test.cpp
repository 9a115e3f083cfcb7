#include "toolbox/worker.h"

#include <gtest/gtest.h>

#include <QtTest>
#include <semaphore>
#include <stdexcept>

namespace kalmo::test {
namespace {

TEST(Worker, NewestJobOfEachWinsInTheOrderAskedAndTheDisposedGetNoAnswer) {
    const WorkerRef first = CreateWorker(), second = CreateWorker(), gone = CreateWorker();
    std::string works, answers;
    std::binary_semaphore begun{0}, free{0};
    const auto ask = [&](WorkerRef worker, char letter, const std::function<void()>& work = {}) {
        RunOnWorker(
            worker, [&works, letter, work] { works += letter, work ? work() : void(); },
            [&answers, letter] { answers += letter; });
    };
    ask(first, 'a', [&] { begun.release(), free.acquire(); });
    begun.acquire();
    ask(gone, 'b');
    ask(second, 'c');
    ask(first, 'd', [] { throw std::runtime_error("dropped"); });
    ask(second, 'e');
    DisposeWorker(gone);
    free.release();
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers == "ae"; })) << answers;
    RunOnWorker(
        first, [] {}, [&] { DisposeWorker(first), answers += 'f'; });
    ask(second, 'g', [&] { begun.release(); });
    begun.acquire();
    DisposeWorker(second);
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers == "aef"; })) << answers;
    QTest::qWait(20);
    EXPECT_EQ(answers, "aef");
    EXPECT_EQ(works, "aedg");
}

}  // namespace
}  // namespace kalmo::test
