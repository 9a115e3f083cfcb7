// From the answer with all printers to the first row on the screen, against the library's own
// combo box with as many rows; and each letter of a search.
#include <benchmark/benchmark.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QVBoxLayout>

#include "print_dialog/destination_choice.h"
#include "print_dialog/destination_order.h"
#include "print_dialog/printers.h"

namespace {

using kalmo::Destination;
using kalmo::DestinationChoice;

std::vector<kalmo::PrinterEntry> Printers(std::int64_t count) {
    std::vector<kalmo::PrinterEntry> printers;
    for (std::int64_t i = 0; i < count; ++i) {
        const std::string number = std::to_string(i * 7919 % count);
        printers.push_back({"building-a-" + number, "Floor " + number, "Building A, room " + number,
                            "Kalmo Tolvane C7030"});
    }
    return printers;
}

void LibraryAlone(benchmark::State& state) {
    QWidget window;
    QComboBox popup(&window);
    window.show();
    QStringList texts;
    for (const Destination& row : kalmo::ArrangedDestinations(Printers(state.range(0)))) {
        texts.append(row.text);
    }
    for (auto _ : state) {
        popup.clear();
        popup.addItems(texts);
        popup.showPopup();
        benchmark::DoNotOptimize(popup.view()->grab());
        popup.hidePopup();
    }
}
BENCHMARK(LibraryAlone)->Arg(1000)->Arg(10'000)->Unit(benchmark::kMillisecond);

/// The window with an open list.
struct OpenList {
    OpenList() {
        window.show();
        choice.list()->showPopup();
    }
    QListView* rows() { return window.findChild<QListView*>("printers"); }
    QWidget window;
    DestinationChoice choice{&window};
};

void FirstRow(benchmark::State& state) {
    const auto rows = kalmo::ArrangedDestinations(Printers(state.range(0)));
    OpenList open;
    for (auto _ : state) {
        open.choice.setQueues(rows, {});
        benchmark::DoNotOptimize(open.rows()->grab());
    }
}
BENCHMARK(FirstRow)->Arg(3)->Arg(1000)->Arg(10'000)->Unit(benchmark::kMillisecond);

void Letter(benchmark::State& state) {
    OpenList open;
    open.choice.setQueues(kalmo::ArrangedDestinations(Printers(state.range(0))), {});
    auto* search = open.window.findChild<QLineEdit*>();
    bool more = false;
    for (auto _ : state) {
        more = !more;
        search->setText(more ? "room 7" : "room");
        benchmark::DoNotOptimize(open.rows()->grab());
    }
}
BENCHMARK(Letter)->Arg(1000)->Arg(10'000)->Unit(benchmark::kMillisecond);

/// What the worker does, off the screen's thread.
void Arrange(benchmark::State& state) {
    const auto printers = Printers(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(kalmo::ArrangedDestinations(printers));
}
BENCHMARK(Arrange)->Arg(1000)->Arg(10'000)->Unit(benchmark::kMillisecond);

}  // namespace
