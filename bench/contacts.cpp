// Loading a folder of cards: against reading the same files' bytes, which is the least it can take.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "contacts/address_book.h"
#include "contacts/card_mapping.h"
#include "contacts/collation.h"

namespace {

using namespace contacts;
namespace fs = std::filesystem;

/// As many cards as asked for, made once each; all go at the end.
class Folders final {
public:
    Folders() {
        std::string pattern = (fs::temp_directory_path() / "bench-contacts-XXXXXX").string();
        root_ = mkdtemp(pattern.data());
    }
    ~Folders() { fs::remove_all(root_); }
    const fs::path& of(std::int64_t count) {
        fs::path& folder = folders_[count];
        if (!folder.empty()) return folder;
        folder = root_ / std::to_string(count);
        fs::create_directory(folder);
        for (std::int64_t i = 0; i < count; ++i) {
            const Person person = NumberedPerson(i);
            std::ofstream(folder / (person.uid + ".vcf")) << *ApplyPerson("", person);
        }
        return folder;
    }

private:
    static Person NumberedPerson(std::int64_t i) {
        const std::string number = std::to_string(i);
        Person person;
        person.uid = "card-" + number;
        person.first = "First" + number;
        person.last = "L\xC3\xA4st" + number;
        person.organization = "Organization " + number;
        person.phones = {{Label::workFax, "+49 30 " + number, ""}, {Label::work, "0" + number, ""}};
        person.emails = {{Label::work, number + "@example.com", ""}};
        return person;
    }
    fs::path root_;
    std::map<std::int64_t, fs::path> folders_;
};

const fs::path& FolderOf(std::int64_t count) {
    static Folders folders;
    return folders.of(count);
}

void ReadTheBytes(benchmark::State& state) {
    const fs::path& folder = FolderOf(state.range(0));
    for (auto _ : state) {
        std::size_t bytes = 0;
        for (const auto& entry : fs::directory_iterator(folder)) {
            std::filebuf file;
            file.open(entry.path(), std::ios::in | std::ios::binary);
            char text[4096];
            bytes += static_cast<std::size_t>(file.sgetn(text, sizeof text));
        }
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK(ReadTheBytes)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void Load(benchmark::State& state) {
    const auto book = OpenFolder(FolderOf(state.range(0)));
    for (auto _ : state) {
        Contacts contacts;
        if (!book->load(contacts, {}) ||
            contacts.persons.size() != static_cast<std::size_t>(state.range(0))) {
            state.SkipWithError("the folder was not loaded");
        }
    }
}
BENCHMARK(Load)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void Save(benchmark::State& state) {
    const auto book = OpenFolder(FolderOf(10'000));
    int number = 0;
    for (auto _ : state) {
        Changes changes{{{}}, {}};
        if (!book->person("card-1", changes.persons[0], {})) state.SkipWithError("no card");
        changes.persons[0].mailbox = std::to_string(++number);
        if (!book->save(changes, {})) state.SkipWithError("not saved");
    }
}
BENCHMARK(Save)->Unit(benchmark::kMillisecond);

template <std::string (*Prepare)(std::string_view)>
void PrepareText(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(
            Prepare("M\xC3\xBCller-L\xC3\xBC"
                    "denscheid"));
}
BENCHMARK(PrepareText<Folded>);
BENCHMARK(PrepareText<SortKey>);

}  // namespace

BENCHMARK_MAIN();
