// Inserts and exceptions by the ten thousand: added one by one in any order, to the ticket and
// back; and page ranges as text.
#include <benchmark/benchmark.h>

#include <numeric>
#include <random>
#include <string>

#include "special_pages/page_ranges.h"
#include "special_pages/special_page_list.h"

namespace {

using namespace kalmo;

/// The pages 1 to `count`, shuffled: the places lie anywhere in the list.
std::vector<SInt32> Pages(std::int64_t count) {
    std::vector<SInt32> pages(static_cast<std::size_t>(count));
    std::iota(pages.begin(), pages.end(), 1);
    std::ranges::shuffle(pages, std::mt19937(1));
    return pages;
}

void Add(ExceptionPageList* list, SInt32 page) {
    ExceptionPage exception;
    exception.setStartPage(page);
    exception.setEndPage(page);
    list->add(ArrayOfPages({&exception}));
}

void Add(InsertList* list, SInt32 page) {
    Insert insert;
    insert.setStartPage(page);
    list->add(ArrayOfPages({&insert}));
}

template <typename List>
void AddOneByOne(benchmark::State& state) {
    const auto pages = Pages(state.range(0));
    for (auto _ : state) {
        List list;
        for (const SInt32 page : pages) Add(&list, page);
        benchmark::DoNotOptimize(list.count());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(AddOneByOne<ExceptionPageList>)
    ->RangeMultiplier(10)
    ->Range(1'000, 100'000)
    ->Complexity(benchmark::oNLogN)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(AddOneByOne<InsertList>)
    ->RangeMultiplier(10)
    ->Range(1'000, 100'000)
    ->Complexity(benchmark::oNLogN)
    ->Unit(benchmark::kMillisecond);

/// One range over all that is there; the copy that it is added to counts too.
void AddOverAll(benchmark::State& state) {
    ExceptionPageList list;
    for (const SInt32 page : Pages(state.range(0))) Add(&list, page);
    ExceptionPage all;
    all.setStartPage(1);
    all.setEndPage(kLastPageNumber);
    for (auto _ : state) {
        ExceptionPageList copy(list);
        copy.add(ArrayOfPages({&all}));
        benchmark::DoNotOptimize(copy.count());
    }
}
BENCHMARK(AddOverAll)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

template <typename List, typename Page>
void TicketRoundTrip(benchmark::State& state) {
    List list;
    for (const SInt32 page : Pages(10'000)) Add(&list, page);
    for (auto _ : state) {
        const auto ticket = Owned<CFArrayRef>::Adopt(list.asTicket());
        List read;
        for (CFIndex i = 0; i < CFArrayGetCount(ticket); ++i) {
            const Page page(
                static_cast<CFDictionaryRef>(const_cast<void*>(CFArrayGetValueAtIndex(ticket, i))));
            read.add(ArrayOfPages({&page}));
        }
        benchmark::DoNotOptimize(read.count());
    }
}
BENCHMARK(TicketRoundTrip<ExceptionPageList, ExceptionPage>)->Unit(benchmark::kMillisecond);
BENCHMARK(TicketRoundTrip<InsertList, Insert>)->Unit(benchmark::kMillisecond);

void ReadPageRanges(benchmark::State& state, const std::string& item, std::size_t bytes,
                    bool byRange) {
    std::string text;
    while (text.size() < bytes) text += item;
    const auto string = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(text));
    for (auto _ : state) {
        std::vector<PageRange> ranges;
        benchmark::DoNotOptimize(CreatePageRangesBySeparatingString(string, byRange, &ranges));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK_CAPTURE(ReadPageRanges, each_of_99999_pages, "1-99999", 1, false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadPageRanges, ranges_100_kB, "12-345, ", 100'000, true)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadPageRanges, ranges_1_MB, "12-345, ", 1'000'000, true)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadPageRanges, every_page_1_MB, "1-99999,", 1'000'000, false)
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
