#include "print_dialog/printers.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <optional>
#include <thread>

#include "support/dead_servers.h"

namespace kalmo {
namespace {

using test::DeadServer;
using test::Silence;

constexpr int kPatienceMs = kServerDeadlineMs + 2000;

/// Runs the event loop until `done` or too long a time; the longest time it did not come round.
template <typename Done>
qint64 LongestGap(Done done) {
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

void WaitForWorkers() {
    while (RunningWorkers() > 0) std::this_thread::sleep_for(std::chrono::milliseconds(20));
}

TEST(PrintersTest, DeadServersCostALineAndNoFrame) {
    for (const auto silence : test::kSilences) {
        SCOPED_TRACE(test::Describe(silence));
        const DeadServer server(silence);
        setenv("CUPS_SERVER", server.name().c_str(), 1);
        Printers printers;
        std::optional<PrinterList> list;
        std::optional<PrinterDescription> description;
        QElapsedTimer time;
        time.start();
        printers.list([&](const PrinterList& answer) { list = answer; });
        printers.describe("office",
                          [&](const PrinterDescription& answer) { description = answer; });
        EXPECT_LT(time.elapsed(), 50);
        EXPECT_LT(LongestGap([&] { return list && description; }), 50);
        ASSERT_TRUE(list && description);
        EXPECT_LT(time.elapsed(), 5000);
        EXPECT_TRUE(list->printers.empty());
        EXPECT_NE(list->error.find("does not answer"), std::string::npos) << list->error;
        EXPECT_NE(description->error.find("does not answer"), std::string::npos);
    }
    unsetenv("CUPS_SERVER");
}

TEST(PrintersTest, OnlyTheNewestRequestIsAnswered) {
    const DeadServer server(Silence::closedPort);
    setenv("CUPS_SERVER", server.name().c_str(), 1);
    Printers printers;
    int older = 0, newer = 0;
    printers.list([&](const PrinterList&) { ++older; });
    printers.list([&](const PrinterList&) { ++newer; });
    LongestGap([&] { return newer > 0 && RunningWorkers() == 0; });
    EXPECT_EQ(older, 0);
    EXPECT_EQ(newer, 1);
    unsetenv("CUPS_SERVER");
}

TEST(PrintersTest, AnswersForSomebodyGoneAreDropped) {
    const DeadServer server(Silence::closedPort);
    setenv("CUPS_SERVER", server.name().c_str(), 1);
    int answers = 0;
    {
        Printers printers;
        printers.list([&](const PrinterList&) { ++answers; });
        WaitForWorkers();  // the answer lies in the queue
    }
    LongestGap([time = QElapsedTimer()]() mutable {
        if (!time.isValid()) time.start();
        return time.elapsed() > 50;
    });
    EXPECT_EQ(answers, 0);
    unsetenv("CUPS_SERVER");
}

}  // namespace
}  // namespace kalmo
