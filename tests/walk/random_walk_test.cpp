// The whole program in the hands of somebody who does not know what they want. As a test it takes
// a few hundred actions; scripts/random-walk takes as many as it is told, under the sanitizers.
#include <atomic>
#include <cstdio>
#include <thread>

#include "print_dialog/print_window.h"
#include "print_dialog/sample_documents.h"
#include "programs/private_cupsd.h"
#include "walk/walker.h"

namespace kalmo::test {
namespace {

int Number(const char* variable, int otherwise) {
    const char* value = std::getenv(variable);
    return value ? std::atoi(value) : otherwise;
}

/// Ends the program when the UI thread comes to no end.
class Watchdog final {
public:
    explicit Watchdog(std::chrono::seconds limit)
        : thread_([this, limit](const std::stop_token& stop) {
              int seen = -1;
              auto since = std::chrono::steady_clock::now();
              while (!stop.stop_requested()) {
                  std::this_thread::sleep_for(std::chrono::milliseconds(200));
                  if (seen != beats_) since = std::chrono::steady_clock::now();
                  seen = beats_;
                  if (std::chrono::steady_clock::now() - since < limit) continue;
                  std::fprintf(stderr, "The window hangs\n");
                  std::abort();
              }
          }) {
        QObject::connect(&beat_, &QTimer::timeout, [this] { ++beats_; });
        beat_.start(100);
    }

private:
    QTimer beat_;
    std::atomic<int> beats_ = 0;
    std::jthread thread_;
};

class Windows final {
public:
    explicit Windows(std::mt19937& random) : random_(random) {
        InstallPresence(WindowPresence());
        setenv("XDG_CONFIG_HOME", MakeFolder("config").c_str(), 1);
        document_ = WriteDocument(std::vector(7, kPortraitPage)).string();
        EXPECT_EQ(server_.problem(), "");
        for (const std::string& printer : kPrinters) {
            EXPECT_EQ(server_.addQueue(printer, SamplePPD("kalmo-" + printer)).exitCode, 0);
        }
        EXPECT_EQ(server_.addQueue("raw", {}).exitCode, 0);
    }
    /// Another window with another printer: one of the server's, or a file's and a folder.
    void open() {
        window_.reset();
        const std::string& printer = kPrinters[random_() % kPrinters.size()];
        const bool onServer = random_() % 2 == 0;
        CommandLine commandLine;
        commandLine.document = document_;
        commandLine.panels = {"special-pages", "job-notes"};
        if (onServer) {
            commandLine.printer = printer;
        } else {
            commandLine.output = MakeFolder("out").string();
            commandLine.ppd = SamplePPD("kalmo-" + printer).string();
        }
        window_ = std::make_unique<PrintWindow>(commandLine);
        ASSERT_EQ(window_->prepare(), kExitDone);
        window_->show();
        window_->findPrinters();
        ++opened_;
    }
    [[nodiscard]] int opened() const { return opened_; }

private:
    inline static const std::vector<std::string> kPrinters = {"production", "office-color",
                                                              "office-mono", "basic"};
    PrivateCupsd server_;
    std::mt19937& random_;
    std::string document_;
    std::unique_ptr<PrintWindow> window_;
    int opened_ = 0;
};

TEST(RandomWalk, EndsWell) {
    const int actions = Number("KALMO_WALK_ACTIONS", 1500);
    const auto seed = static_cast<unsigned>(Number("KALMO_WALK_SEED", 1));
    const char* logFile = std::getenv("KALMO_WALK_LOG");
    std::mt19937 random(seed);
    Windows windows(random);
    Walker walker(
        seed, [&] { windows.open(); },
        logFile ? std::filesystem::path(logFile) : MakeFolder("walk") / "log");
    const Watchdog watchdog(std::chrono::seconds(60));
    walker.walk(actions);
    EXPECT_GT(windows.opened(), 0);
    EXPECT_GE(walker.visits().size(), 3U) << "the walk came nowhere";
    for (const auto& [window, times] : walker.visits())
        std::printf("%7d %s\n", times, window.c_str());
    std::printf("%d actions, seed %u, %d print windows, %zu jobs\n", actions, seed,
                windows.opened(), JobsOnTheServer().size());
}

}  // namespace
}  // namespace kalmo::test
