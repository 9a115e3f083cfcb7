#include "print_dialog/printers.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
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
    for (const auto silence : test::kSilences) {
        SCOPED_TRACE(test::Describe(silence));
        const DeadServer server(silence);
        auto asked = AskForBoth();
        // Other programs may have kept the processor; who waits for a server does so every time.
        for (int tries = 1; asked.longestGap >= 50 && tries < 3; ++tries) asked = AskForBoth();
        EXPECT_LT(asked.longestGap, 50);
        EXPECT_LT(asked.total, 6000);
        EXPECT_TRUE(asked.list.printers.empty());
        EXPECT_NE(asked.list.error.find("does not answer"), std::string::npos);
        EXPECT_NE(asked.description.error.find("does not answer"), std::string::npos);
    }
}

/// The languages are read once: the German program is another one.
TEST(PrintersTest, WorkersSpeakTheUsersLanguage) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto answerInGerman = [] {
        setenv("LANGUAGE", "de", 1);
        const DeadServer server(Silence::closedPort);
        const auto asked = AskForBoth();
        std::fprintf(stderr, "%s\n", asked.description.error.c_str());
        std::_Exit(0);
    };
    EXPECT_EXIT(answerInGerman(), testing::ExitedWithCode(0),
                "Der Druckserver 127.0.0.1 antwortet nicht; starten Sie ihn");
}

TEST(PrintersTest, OnlyTheNewestRequestIsAnswered) {
    const DeadServer server(Silence::closedPort);
    Printers printers;
    int older = 0, newer = 0;
    printers.list([&](const PrinterList&) { ++older; });
    printers.list([&](const PrinterList&) { ++newer; });
    LongestGap([&] { return newer > 0 && RunningWorkers() == 0; });
    EXPECT_EQ(older, 0);
    EXPECT_EQ(newer, 1);
}

TEST(PrintersTest, AnswersForSomebodyGoneAreDropped) {
    const DeadServer server(Silence::closedPort);
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
}

}  // namespace
}  // namespace kalmo
