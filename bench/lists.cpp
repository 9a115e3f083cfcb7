// New items in a long list, as at each letter of a search, against the library's own view of as
// many rows.
#include <benchmark/benchmark.h>

#include <QAbstractTableModel>
#include <QApplication>
#include <QTreeView>
#include <numeric>
#include <vector>

#include "foundation/bundle.h"
#include "toolbox/host.h"
#include "toolbox/list_view.h"
#include "toolbox/windows.h"

namespace {

using Items = std::vector<ListItem>;
constexpr int kAll = 100'000, kFound = 66'000;

class Rows final : public QAbstractTableModel {
public:
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : count_;
    }
    [[nodiscard]] int columnCount(const QModelIndex& = {}) const override { return 3; }
    [[nodiscard]] QVariant data(const QModelIndex&, int) const override { return {}; }

    void setCount(int count) {
        beginResetModel();
        count_ = count;
        endResetModel();
    }

private:
    int count_ = 0;
};

void LibraryAlone(benchmark::State& state) {
    Rows rows;
    QTreeView view;
    view.setModel(&rows);
    view.setUniformRowHeights(true);
    view.setRootIsDecorated(false);
    view.setItemsExpandable(false);
    view.show();
    for (auto _ : state) {
        for (const int count : {kAll, kFound}) {
            rows.setCount(count);
            view.scrollTo(rows.index(0, 0));  // lays it out
        }
    }
}
BENCHMARK(LibraryAlone)->Unit(benchmark::kMillisecond);

Owned<CFBundleRef> Product() {
    const auto url = Owned<CFURLRef>::Adopt(CFURLCreateWithFileSystemPath(
        nullptr, CFSTR(KALMO_BINARY_DIR "/KalmoFeatures.plugin"), true));
    return Owned<CFBundleRef>::Adopt(CFBundleCreate(nullptr, url));
}

/// In an order of names, not of numbers.
Items SomeOf(int count) {
    Items items(static_cast<std::size_t>(count));
    for (std::size_t at = 0; at < items.size(); ++at) {
        items[at] = 1 + static_cast<ListItem>(at * 7919 % kAll);
    }
    return items;
}

/// The list of special pages, with `selected` of its rows selected.
void List(benchmark::State& state, int selected) {
    Owned<CFBundleRef> bundle = Product();
    IBNibRef nib = nullptr;
    WindowRef window = nullptr;
    ControlRef list = nullptr;
    CreateNibReferenceWithCFBundle(bundle, CFSTR("SpecialPages"), &nib);
    CreateWindowFromNib(nib, CFSTR("SpecialPages"), &window);
    if (GetControlByID(window, {'KPDE', 1000}, &list) != noErr) {
        return state.SkipWithError("no list");
    }
    for (const OSType column : {'aaaa', 'bbbb', 'cccc'}) {
        AddListColumn(list, column, CFSTR("Column"), 100);
    }
    WidgetFromWindow(window)->show();
    const Items all = SomeOf(kAll), found = SomeOf(kFound);
    SetListItems(list, all);
    SetListSelection(list, SomeOf(selected));
    for (auto _ : state) {
        SetListItems(list, found);
        SetListItems(list, all);
    }
    DisposeWindow(window);
    DisposeNibReference(nib);
}
BENCHMARK_CAPTURE(List, NothingSelected, 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(List, OneSelected, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(List, MostSelected, kFound)->Unit(benchmark::kMillisecond);

}  // namespace
