// Time from start to first painted frame, and memory: kalmo-print against Qt's own print dialog.
//
// Run under a display (scripts/bench starts one). Each round starts every program once, in turn;
// the figures are medians. The program starts itself for the other dialog.
#include <QApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <vector>

namespace {

std::int64_t Now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

long ResidentKilobytes() {
    std::ifstream status("/proc/self/statm");
    long total = 0;
    long resident = 0;
    status >> total >> resident;
    return resident * 4;
}

struct PaintWatch final : QObject {
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::UpdateRequest && object->isWidgetType()) {
            QTimer::singleShot(0, [] {
                std::printf("first-frame-ns %lld rss-kb %ld\n", static_cast<long long>(Now()),
                            ResidentKilobytes());
                std::fflush(stdout);
                std::_Exit(0);
            });
        }
        return false;
    }
};

int ShowQtDialog(int argc, char** argv) {
    const QApplication application(argc, argv);
    QPrinter printer;
    QPrintDialog dialog(&printer);
    PaintWatch watch;
    dialog.installEventFilter(&watch);
    dialog.show();
    return QApplication::exec();
}

struct Sample {
    double milliseconds = 0;
    long kilobytes = 0;
};

Sample Measure(const QString& program, const QStringList& arguments) {
    QProcess process;
    const auto start = Now();
    process.start(program, arguments);
    process.waitForFinished(30'000);
    long long painted = 0;
    Sample sample;
    const QByteArray output = process.readAllStandardOutput();
    if (std::sscanf(output.constData(), "first-frame-ns %lld rss-kb %ld", &painted,
                    &sample.kilobytes) == 2) {
        sample.milliseconds = static_cast<double>(painted - start) / 1e6;
    }
    return sample;
}

Sample Median(std::vector<Sample> samples) {
    const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end(), [](const Sample& a, const Sample& b) {
        return a.milliseconds < b.milliseconds;
    });
    return *middle;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1 && QByteArray(argv[1]) == "--qt-dialog") return ShowQtDialog(argc, argv);
    constexpr int kRounds = 15;
    const QString ours = QStringLiteral(KALMO_BINARY_DIR "/bin/kalmo-print");
    const QStringList arguments{"--print-first-frame", "--ppd",
                                KALMO_SOURCE_DIR "/printers/kalmo-office-color.ppd",
                                KALMO_SOURCE_DIR "/samples/sample.pdf"};
    std::vector<Sample> kalmo;
    std::vector<Sample> qt;
    for (int round = 0; round < kRounds; ++round) {
        kalmo.push_back(Measure(ours, arguments));
        qt.push_back(Measure(QString::fromLocal8Bit(argv[0]), {"--qt-dialog"}));
    }
    const Sample a = Median(kalmo);
    const Sample b = Median(qt);
    std::printf("%-28s %8s %8s\n", "first frame, median of 15", "ms", "MB");
    std::printf("%-28s %8.1f %8.1f\n", "kalmo-print", a.milliseconds,
                static_cast<double>(a.kilobytes) / 1024);
    std::printf("%-28s %8.1f %8.1f\n", "Qt's print dialog", b.milliseconds,
                static_cast<double>(b.kilobytes) / 1024);
    if (b.milliseconds > 0) {
        std::printf("%-28s %8.2f %+8.1f\n", "ratio, difference", a.milliseconds / b.milliseconds,
                    static_cast<double>(a.kilobytes - b.kilobytes) / 1024);
    }
    return a.milliseconds > 0 && b.milliseconds > 0 ? 0 : 1;
}
