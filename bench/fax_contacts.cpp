// Recipients by the thousand, and the address book's picker at each keystroke, up to 100,000
// contacts.
#include <benchmark/benchmark.h>

#include <array>
#include <string>

#include "contacts/collation.h"
#include "fax/fax_recipients_model.h"
#include "fax/picker_candidates.h"

namespace {

using namespace kalmo;

std::string Name(std::uint32_t number) {
    static constexpr std::array kSyllables{"mil", "ler", "ham", "ton", "schu", "mann", "ber", "gé"};
    std::string name;
    for (int i = 0; i < 3; ++i, number /= 8) name += kSyllables[number % 8];
    name[0] = static_cast<char>(name[0] - 'a' + 'A');
    return name;
}

/// A fax number and a mobile one each, in fifty groups.
contacts::Contacts Book(std::int64_t count) {
    contacts::Contacts book;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t mixed = i * 2654435761u;
        contacts::Person person{
            .uid = std::to_string(i), .first = Name(mixed >> 7), .last = Name(mixed >> 16)};
        person.phones = {{contacts::Label::mobile, "+49 170 " + std::to_string(mixed)},
                         {contacts::Label::workFax, "030 " + std::to_string(mixed >> 3)}};
        person.groups = {"Group " + std::to_string(i % 50), "Everybody"};
        book.persons.push_back(std::move(person));
    }
    return book;
}

PickerWords Words() {
    PickerWords words{.labels = {}, .noGroup = "No group", .namelessGroup = "Unnamed group"};
    words.labels.fill("work fax");
    return words;
}

void ReadyForThePicker(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        contacts::Contacts book = Book(state.range(0));
        state.ResumeTiming();
        benchmark::DoNotOptimize(PickerCandidates(std::move(book), Words()).count());
    }
}
BENCHMARK(ReadyForThePicker)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// The floor: every byte that a search may look at, once.
void OnePassOverTheTexts(benchmark::State& state) {
    const PickerCandidates candidates(Book(state.range(0)), Words());
    std::vector<std::string> texts;
    for (PickerCandidates::Index i = 0; i < candidates.count(); ++i)
        texts.push_back(contacts::Folded(candidates.text(i, kLastNameColumn)) + '\0' +
                        contacts::Folded(candidates.text(i, kFirstNameColumn)) + '\0' +
                        contacts::Folded(candidates.text(i, kFaxNumberColumn)) + '\0' +
                        contacts::Folded(candidates.text(i, kLabelColumn)));
    for (auto _ : state) {
        std::size_t sum = 0;
        for (const std::string& text : texts)
            for (const char byte : text) sum += static_cast<unsigned char>(byte);
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(OnePassOverTheTexts)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void Filter(benchmark::State& state, const char* typed) {
    const PickerCandidates candidates(Book(state.range(0)), Words());
    const std::string sought = contacts::Folded(typed);
    for (auto _ : state) {
        std::vector<ListItem> items;
        for (PickerCandidates::Index i = 0; i < candidates.count(); ++i)
            if (candidates.matches(i, sought)) items.push_back(i + 1);
        benchmark::DoNotOptimize(items.data());
    }
}
BENCHMARK_CAPTURE(Filter, many_hits, "m")->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Filter, few_hits, "milhamton")
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Filter, no_hit, "zzz")->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// One by one, each compared with all before it.
void AddRecipients(benchmark::State& state) {
    for (auto _ : state) {
        FaxRecipientList list;
        FaxRecipientsModel model{.list = &list};
        for (std::uint32_t i = 0; i < state.range(0); ++i) {
            auto* const recipient = new FaxRecipient(
                Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(Name(i))), nullptr,
                Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(std::to_string(i))));
            AddRecipient(&model, recipient);
            FaxRecipientRelease(recipient);
        }
        benchmark::DoNotOptimize(list.count());
    }
}
BENCHMARK(AddRecipients)->Arg(100)->Arg(1'000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
