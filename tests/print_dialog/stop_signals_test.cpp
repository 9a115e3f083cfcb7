#include "print_dialog/stop_signals.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QTimer>
#include <csignal>

namespace kalmo {
namespace {

TEST(StopSignalsTest, ASignalStopsTheJobAndNotTheProgram) {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE(number);
        QEventLoop loop;
        int stops = 0;
        {
            const StopSignals signals([&] {
                ++stops;
                loop.quit();
            });
            QTimer::singleShot(5000, &loop, &QEventLoop::quit);
            std::raise(number);
            std::raise(number);  // an impatient user
            EXPECT_EQ(stops, 0) << "told by the event loop, not by the signal handler";
            loop.exec();
        }
        EXPECT_EQ(stops, 1);
        EXPECT_EQ(std::signal(number, SIG_DFL), SIG_DFL) << "afterwards signals end the program";
    }
}

}  // namespace
}  // namespace kalmo
