// The pane: from loading the plug-in to the end of Initialize (in fresh processes, and again in
// one), a change of panels with the repaint that follows, against the library's own, and the way of
// a full ticket, and of one with many special pages, to the panels and back.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QProcess>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

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

/// The pane in a window that is shown.
struct OpenPane {
    explicit OpenPane(const std::string& ticket = {}, const std::vector<std::string>& panels = {})
        : host(panels) {
        if (!ticket.empty() && !host.readTicket(ticket))
            throw std::runtime_error("the ticket cannot be read");
        Begin(host, dialog);
        (void)host.open();
        dialog.window.show();
        repaint();
    }
    ~OpenPane() { host.end(noErr); }
    OpenPane(const OpenPane&) = delete;
    OpenPane& operator=(const OpenPane&) = delete;

    QWidget* widget(OSType signature, SInt32 id) {
        ControlRef control = nullptr;
        GetControlByID(WindowFromWidget(&dialog.window), {signature, id}, &control);
        return WidgetFromControl(control);
    }
    /// To the second panel and back to the first.
    void switchPanel() {
        (void)SendCommandToWindow(WindowFromWidget(&dialog.window), forwards ? 'KFup' : 'KFdn');
        forwards = !forwards;
    }
    void repaint() {
        dialog.embedder->update();
        QCoreApplication::processEvents();
    }

    Dialog dialog;
    kalmo::PrintJobHost host;
    bool forwards = true;
};

/// Back and forth between Paper/Output and Image Options.
void PanelSwitchAndRepaint(benchmark::State& state) {
    OpenPane pane;
    const QWidget* paperOutput = pane.widget('KPpo', 102);
    const QWidget* imageOptions = pane.widget('KPDE', 1301);
    for (auto _ : state) {
        const bool before = paperOutput->isVisible();
        pane.switchPanel();
        pane.repaint();
        if (paperOutput->isVisible() == before || imageOptions->isVisible() != before)
            return state.SkipWithError("the panel shown is not the other one");
    }
}
BENCHMARK(PanelSwitchAndRepaint)->Unit(benchmark::kMillisecond);

/// The same panels hidden, shown and repainted by the library alone.
void LibraryAloneSwitchAndRepaint(benchmark::State& state) {
    OpenPane pane;
    QWidget *hidden = pane.widget('KSgb', 1), *shown = pane.widget('KSgb', 2);
    QWidget* const cover = pane.widget('Kshl', 15);
    if (hidden->isVisible()) std::swap(hidden, shown);
    // Drawn like the one that is shown, not greyed.
    ActivateControl(ControlFromWidget(hidden));
    EnableControl(ControlFromWidget(hidden));
    for (auto _ : state) {
        cover->hide();
        shown->hide();
        hidden->show();
        cover->show();
        pane.repaint();
        std::swap(hidden, shown);
    }
}
BENCHMARK(LibraryAloneSwitchAndRepaint)->Unit(benchmark::kMillisecond);

std::string Text(const std::string& key, const std::string& value) {
    return "<key>" + key + "</key><string>" + value + "</string>";
}
std::string Numbers(std::initializer_list<const char*> keys, int value) {
    std::string all;
    for (const std::string key : keys)
        all += "<key>" + key + "</key><integer>" + std::to_string(value) + "</integer>";
    return all;
}
std::string Dictionary(const std::string& key, const std::string& entries) {
    return "<key>" + key + "</key><dict>" + entries + "</dict>";
}

/// Everything that the panels know, and recipients of a circular.
std::string FullTicket() {
    const std::string stock =
        Numbers({"Size", "Type", "Color", "Weight", "Punched", "SidesCoated", "Finish", "kGrain"},
                1) +
        Text("Description", "Paper of the house") + Text("CustomName", "House");
    std::string recipients;
    for (int i = 0; i < 100; ++i) {
        recipients += "<dict>" + Text("FirstName", "Ada") + Text("LastName", std::to_string(i)) +
                      Text("FaxNumber", "+49 30 1234567") + Text("Organization", "Office") +
                      "</dict>";
    }
    const std::string print = "com.kalmo.print.";
    return "<plist version=\"1.0\"><dict>" +
           Dictionary(
               "PrintSettings",
               Dictionary(print + "JobType", Numbers({"JobType"}, 3) + Text("SavedJobName", "Job") +
                                                 Text("SavedJobLocation", "Folder")) +
                   Dictionary(print + "JobLevelStock", stock) +
                   Dictionary(print + "SeparatorStock", stock) +
                   Dictionary(print + "SpecialPages.FrontCover", Dictionary("Stock", stock)) +
                   Dictionary(print + "SpecialPages.BackCover", Dictionary("Stock", stock)) +
                   "<key>" + print + "FaxRecipientList</key><array>" + recipients + "</array>") +
           Dictionary("PPDChoices",
                      Text("MediaType", "Recycled") + Text("MediaColor", "Blue") +
                          Text("Duplex", "DuplexTumble") + Text("StapleLocation", "DualLandscape") +
                          Text("KLPunch", "2HolePunch") + Text("OutputBin", "Finisher") +
                          Text("Resolution", "1200x1200dpi") + Text("KLEconomode", "Draft")) +
           Dictionary("PageFormat", {}) + "</dict></plist>";
}

/// What the dialog asks of the pane when paper or orientation change.
void SyncOfAFullTicket(benchmark::State& state) {
    OpenPane pane(FullTicket());
    for (auto _ : state) {
        pane.host.sync(kSyncToTicket);
        pane.host.sync(kSyncToUI);
    }
}
BENCHMARK(SyncOfAFullTicket)->Unit(benchmark::kMicrosecond);

/// So many inserts and as many exceptions, each of a page of its own.
std::string TicketWithSpecialPages(int count) {
    const auto pages = [count](const char* key, const char* more) {
        std::string array =
            "<key>com.kalmo.print.SpecialPages." + std::string(key) + "</key><array>";
        for (int page = 1; page <= count; ++page) {
            array += "<dict>" + Numbers({"StartPage", more}, page) +
                     Dictionary("Stock", Numbers({"Color"}, 2)) + "</dict>";
        }
        return array + "</array>";
    };
    return "<plist version=\"1.0\"><dict>" +
           Dictionary("PrintSettings",
                      pages("InsertList", "Quantity") + pages("ExceptionList", "EndPage")) +
           Dictionary("PPDChoices", {}) + Dictionary("PageFormat", {}) + "</dict></plist>";
}

/// The same with special pages: both lists written, read again and shown in the panel's list.
void SyncOfSpecialPages(benchmark::State& state) {
    OpenPane pane(TicketWithSpecialPages(static_cast<int>(state.range(0))), {"special-pages"});
    const auto* const list = qobject_cast<QTreeView*>(pane.widget('KPDE', 1000));
    for (auto _ : state) {
        pane.host.sync(kSyncToTicket);
        pane.host.sync(kSyncToUI);
    }
    if (!list || list->model()->rowCount() != 2 * state.range(0))
        state.SkipWithError("the list lacks pages");
}
BENCHMARK(SyncOfSpecialPages)->Arg(1000)->Arg(10'000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    if (argc > 1 && QByteArray(argv[1]) == "--cold") return MeasureColdStart();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
