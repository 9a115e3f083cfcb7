// A menu of PPD choices, with and without conflict marking, against the same libcups calls alone,
// on a large PPD file of a real plotter.
#include <benchmark/benchmark.h>
#include <cups/ppd.h>
#include <unistd.h>

#include <QComboBox>
#include <cstdio>
#include <cstdlib>

#include "settings/ppd_menus.h"
#include "toolbox/host.h"

// libcups marks its PPD calls as going away; they are the floor that is measured here.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace {

constexpr char kPlotter[] =
    "/usr/lib/cups/driver/postscript-hp cat \"$(/usr/lib/cups/driver/postscript-hp list | "
    "grep -i designjet.z5400 | head -1 | cut -d'\"' -f2)\" 2>/dev/null";

ppd_file_t* Plotter() {
    static ppd_file_t* const ppd = [] {
        FILE* pipe = popen(kPlotter, "r");
        ppd_file_t* opened = pipe ? ppdOpen(pipe) : nullptr;
        if (pipe) pclose(pipe);
        if (!opened) {
            std::fputs("Install printer-driver-postscript-hp for its PPD files.\n", stderr);
            std::exit(1);
        }
        ppdMarkDefaults(opened);
        return opened;
    }();
    return ppd;
}

void LibraryAlone(benchmark::State& state) {
    ppd_file_t* const ppd = Plotter();
    for (auto _ : state) {
        ppdMarkDefaults(ppd);
        const ppd_option_t* const option = ppdFindOption(ppd, "PageSize");
        int conflicts = 0;
        for (int i = 0; i < option->num_choices; ++i) {
            conflicts += ppdMarkOption(ppd, "PageSize", option->choices[i].choice);
        }
        benchmark::DoNotOptimize(conflicts);
    }
}
BENCHMARK(LibraryAlone)->Unit(benchmark::kMicrosecond);

void Menu(benchmark::State& state, kalmo::Constraints constraints) {
    // The product's own popup, made the way interface files make it.
    const MenuRef menu = CreateNewMenu();
    // Unknown paper names are reported one by one.
    if (!std::freopen("/dev/null", "w", stderr)) return state.SkipWithError("no /dev/null");
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            kalmo::PPDPopulateMenuWithChoices(menu, Plotter(), CFSTR("PageSize"), 0, constraints));
    }
    DisposeMenu(menu);
}
BENCHMARK_CAPTURE(Menu, RespectingConstraints, kalmo::Constraints::respect)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Menu, IgnoringConstraints, kalmo::Constraints::ignore)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
