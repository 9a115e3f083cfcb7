// The pane: from loading the plug-in to the end of Initialize (in fresh processes, and again in
// one), and a change of panels with the repaint that follows.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QProcess>
#include <QPushButton>
#include <QVBoxLayout>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "print_dialog/print_job_host.h"
#include "toolbox/host.h"

namespace {

constexpr char kPrinter[] = KALMO_SOURCE_DIR "/printers/kalmo-office-color.ppd";

/// A dialog as small as the pane can live in.
struct Dialog {
    QWidget window;
    QWidget* embedder = new QWidget(&window);

    Dialog() {
        auto* const layout = new QVBoxLayout(&window);
        auto* const print = new QPushButton("Print", &window);
        auto* const cancel = new QPushButton("Cancel", &window);
        layout->addWidget(embedder, 1);
        layout->addWidget(cancel);
        layout->addWidget(print);
        (void)SetWindowDefaultButton(WindowFromWidget(&window), ControlFromWidget(print));
        (void)SetWindowCancelButton(WindowFromWidget(&window), ControlFromWidget(cancel));
        window.resize(600, 600);
    }
};

void Begin(kalmo::PrintJobHost& host, Dialog& dialog) {
    if (!host.load() || !host.setPrinter({"bench", kPrinter}) ||
        host.begin(ControlFromWidget(dialog.embedder)) != noErr) {
        throw std::runtime_error("the pane does not start");
    }
}

/// One cold start, for --cold: nanoseconds on standard output.
int MeasureColdStart() {
    Dialog dialog;
    const auto start = std::chrono::steady_clock::now();
    kalmo::PrintJobHost host;
    Begin(host, dialog);
    const auto time = std::chrono::steady_clock::now() - start;
    std::printf("%lld\n", static_cast<long long>(std::chrono::nanoseconds(time).count()));
    return 0;
}

void ColdLoadToInitialize(benchmark::State& state) {
    for (auto _ : state) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {"--cold"});
        process.waitForFinished();
        state.SetIterationTime(process.readAllStandardOutput().toDouble() / 1e9);
    }
}
BENCHMARK(ColdLoadToInitialize)->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);

void WarmPrologueToTerminate(benchmark::State& state) {
    Dialog dialog;
    for (auto _ : state) {
        kalmo::PrintJobHost host;
        Begin(host, dialog);
        host.end(noErr);
    }
}
BENCHMARK(WarmPrologueToTerminate)->Unit(benchmark::kMillisecond);

void PanelSwitchAndRepaint(benchmark::State& state) {
    Dialog dialog;
    kalmo::PrintJobHost host;
    Begin(host, dialog);
    (void)host.open();
    dialog.window.show();
    for (auto _ : state) {
        (void)SendCommandToWindow(WindowFromWidget(&dialog.window), 'KFup');
        dialog.embedder->update();
        QCoreApplication::processEvents();
    }
    host.end(noErr);
}
BENCHMARK(PanelSwitchAndRepaint)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    if (argc > 1 && QByteArray(argv[1]) == "--cold") return MeasureColdStart();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
