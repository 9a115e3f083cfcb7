// A ticket of about 1 MB, read and written: the platform's property lists against libplist alone.
#include <benchmark/benchmark.h>
#include <plist/plist.h>

#include <string>

#include "printing/session.h"
#include "printing/ticket_file.h"

namespace {

/// What a fax job to many recipients looks like: an array of small dictionaries of strings and
/// numbers.
const std::string& TicketBytes() {
    static const std::string bytes = [] {
        std::string text =
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n"
            "<key>PrintSettings</key>\n<dict>\n<key>com.kalmo.print.FaxRecipients</key>\n<array>\n";
        for (int i = 0; text.size() < 1'000'000; ++i) {
            const std::string number = std::to_string(i);
            text += "<dict>\n<key>FirstName</key>\n<string>Ada " + number +
                    "</string>\n<key>LastName</key>\n<string>Lovelace &amp; Söhne</string>\n"
                    "<key>FaxNumber</key>\n<string>+49 30 " +
                    number + "</string>\n<key>Index</key>\n<integer>" + number +
                    "</integer>\n<key>Company</key>\n<false/>\n</dict>\n";
        }
        return text + "</array>\n</dict>\n</dict>\n</plist>\n";
    }();
    return bytes;
}

void ReadWithLibraryAlone(benchmark::State& state) {
    const std::string& bytes = TicketBytes();
    for (auto _ : state) {
        plist_t list = nullptr;
        plist_from_xml(bytes.data(), static_cast<uint32_t>(bytes.size()), &list);
        benchmark::DoNotOptimize(list);
        plist_free(list);
    }
}
BENCHMARK(ReadWithLibraryAlone)->Unit(benchmark::kMillisecond);

void ReadTicket(benchmark::State& state) {
    for (auto _ : state) {
        const auto session = Owned<PMPrintSession>::Adopt(PMSessionCreate());
        std::string reason;
        if (!ReadTicketFile(session, TicketBytes(), &reason)) state.SkipWithError(reason.c_str());
    }
}
BENCHMARK(ReadTicket)->Unit(benchmark::kMillisecond);

void WriteWithLibraryAlone(benchmark::State& state) {
    const std::string& bytes = TicketBytes();
    plist_t list = nullptr;
    plist_from_xml(bytes.data(), static_cast<uint32_t>(bytes.size()), &list);
    for (auto _ : state) {
        char* xml = nullptr;
        uint32_t length = 0;
        plist_to_xml(list, &xml, &length);
        benchmark::DoNotOptimize(xml);
        plist_to_xml_free(xml);
    }
    plist_free(list);
}
BENCHMARK(WriteWithLibraryAlone)->Unit(benchmark::kMillisecond);

void WriteTicket(benchmark::State& state) {
    const auto session = Owned<PMPrintSession>::Adopt(PMSessionCreate());
    std::string reason;
    if (!ReadTicketFile(session, TicketBytes(), &reason)) state.SkipWithError(reason.c_str());
    for (auto _ : state) benchmark::DoNotOptimize(WriteTicketFile(session, nullptr));
}
BENCHMARK(WriteTicket)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
