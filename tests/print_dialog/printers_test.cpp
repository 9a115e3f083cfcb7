#include "print_dialog/printers.h"

#include "support/dead_servers.h"
#include "support/qt_test.h"

namespace kalmo::test {
namespace {

constexpr int kPatienceMs = kServerDeadlineMs + 2000;

/// Runs the event loop until `done` or too long a time; the longest time it did not come round.
qint64 LongestGap(const std::function<bool()>& done) {
    QEventLoop loop;
    QElapsedTimer sinceTick, sinceStart;
    qint64 longest = 0;
    QTimer ticks;
    QObject::connect(&ticks, &QTimer::timeout, [&] {
        longest = std::max(longest, sinceTick.restart());
        if (done() || sinceStart.elapsed() > kPatienceMs) loop.quit();
    });
    sinceTick.start();
    sinceStart.start();
    ticks.start(1);
    loop.exec();
    return longest;
}

struct Asked {
    PrinterList list;
    PrinterDescription description;
    qint64 longestGap = 0, total = 0;
};

Asked AskForBoth() {
    Asked asked;
    int answers = 0;
    QElapsedTimer time;
    time.start();
    Printers printers;
    printers.list([&](const PrinterList& answer) { asked.list = answer, ++answers; });
    printers.describe(
        "office", [&](const PrinterDescription& answer) { asked.description = answer, ++answers; });
    asked.longestGap = time.elapsed();  // until here nothing may wait either
    asked.longestGap = std::max(asked.longestGap, LongestGap([&] { return answers == 2; }));
    asked.total = time.elapsed();
    return asked;
}

TEST(PrintersTest, DeadServersCostALineAndNoFrame) {
    for (const auto silence : kSilences) {
        SCOPED_TRACE(static_cast<int>(silence));
        const DeadServer server(silence);
        auto asked = AskForBoth();
        // Other programs may have kept the processor; who waits for a server does so every time.
        for (int tries = 1; asked.longestGap >= 50 && tries < 3; ++tries) asked = AskForBoth();
        EXPECT_LT(asked.longestGap, 50);
        EXPECT_LT(asked.total, 6000);
        EXPECT_TRUE(asked.list.printers.empty());
        EXPECT_TRUE(Contains(asked.list.error, "does not answer"));
        EXPECT_TRUE(Contains(asked.description.error, "does not answer"));
    }
}

TEST(PrintersTest, OnlyTheNewestRequestIsAnsweredAndNobodyWhoIsGone) {
    const DeadServer server(Silence::closedPort);
    auto printers = std::make_unique<Printers>();
    int older = 0, newer = 0;
    printers->list([&](const PrinterList&) { ++older; });
    printers->list([&](const PrinterList&) { ++newer; });
    EXPECT_TRUE(Wait([&] { return newer > 0 && RunningWorkers() == 0; }));
    printers->list([&](const PrinterList&) { ++newer; });
    while (RunningWorkers() > 0) QThread::msleep(20);  // the answer lies in the queue
    printers.reset();
    QTest::qWait(50);
    EXPECT_EQ(std::pair(older, newer), std::pair(0, 1));
}

}  // namespace
}  // namespace kalmo::test
