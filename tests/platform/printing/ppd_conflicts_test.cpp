// Constraints of PPD files, against libcups' own answers and against trying everything.
#include "printing/ppd_conflicts.h"

#include <cups/ppd.h>

#include <random>

#include "support/printer_files.h"
#include "support/test.h"

#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kalmo::test {
namespace {

using Selections = std::vector<PPDSelection>;
using Words = std::vector<std::string>;

const std::string kOpenInstalled = "*OpenGroup: InstallableOptions/Installed\n",
                  kCloseInstalled = "*CloseGroup: InstallableOptions\n";

/// The last of them is a part of the printer.
const Words kOptions = {"A", "B", "C", "D", "Bin"}, kChoices = {"None", "1", "2"};

std::string AnyOf(const Words& words, std::mt19937& random) {
    return words[random() % words.size()];
}

/// A PPD file with rules at random.
std::filesystem::path RandomPrinter(std::mt19937& random) {
    std::string text;
    for (const auto& option : kOptions)
        text += (option == "Bin" ? kOpenInstalled : "") +
                PPDOption(option, AnyOf(kChoices, random), kChoices);
    text += kCloseInstalled;
    for (int rule = 0; rule < 14; ++rule) {
        std::string words;
        for (const auto& option : kOptions)
            if (random() % 2)
                words += "*" + option + " " + AnyOf({"", "None", "1", "2"}, random) + " ";
        // A choice that is forbidden by itself is no conflict, though libcups counts it.
        if (std::ranges::count(words, '*') > 1) text += "*cupsUIConstraints: \"" + words + "\"\n";
    }
    const auto file = MakeFolder("ppd") / "random.ppd";
    WriteFile(file, PPDText(text));
    return file;
}

bool ConflictForCups(const std::filesystem::path& file, const Selections& chosen) {
    const std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)> ppd(ppdOpenFile(file.c_str()),
                                                                 ppdClose);
    ppdMarkDefaults(ppd.get());
    for (const auto& [option, choice] : chosen)
        ppdMarkOption(ppd.get(), option.c_str(), choice.c_str());
    return ppdConflicts(ppd.get()) > 0;
}

constexpr std::size_t kHopeless = 100;

/// By trying everything, from option `at` on.
std::size_t FewestChanges(const PPDConstraints& rules, Selections chosen,
                          const std::set<std::string>& allowed, std::size_t at = 0) {
    if (at == chosen.size()) return rules.conflicts(chosen).empty() ? 0 : kHopeless;
    std::size_t fewest = FewestChanges(rules, chosen, allowed, at + 1);
    for (const auto& choice : kChoices) {
        if (choice == chosen[at].choice || !allowed.contains(chosen[at].option)) continue;
        auto tried = chosen;
        tried[at].choice = choice;
        fewest = std::min(fewest, 1 + FewestChanges(rules, tried, allowed, at + 1));
    }
    return std::min(fewest, kHopeless);
}

TEST(PPDConstraints, EndByTheFewestChangesOfTheirOptionsThatAJobCanMake) {
    std::mt19937 random(1);
    std::set<std::size_t> counts;
    for (int time = 0; time < 400; ++time) {
        const auto file = RandomPrinter(random);
        const auto rules = PPDConstraints::Open(file, nullptr);
        ASSERT_TRUE(rules);
        Selections chosen;
        for (const auto& option : kOptions) chosen.push_back({option, AnyOf(kChoices, random)});
        SCOPED_TRACE(time);
        const auto conflicts = rules->conflicts(chosen);
        EXPECT_EQ(!conflicts.empty(), ConflictForCups(file, chosen));
        std::set<std::string> allowed;
        for (const PPDConflict& conflict : conflicts)
            for (const PPDSelection& each : conflict) allowed.insert(each.option);
        allowed.erase("Bin");
        const auto fewest = FewestChanges(*rules, chosen, allowed);
        const auto changes = rules->resolution(chosen);
        EXPECT_EQ(changes ? changes->size() : kHopeless, fewest);
        counts.insert(fewest);
        if (!changes) continue;
        for (const PPDSelection& change : *changes) {
            EXPECT_TRUE(allowed.contains(change.option)) << change.option;
            chosen.push_back(change);
        }
        EXPECT_TRUE(rules->conflicts(chosen).empty());
    }
    EXPECT_EQ(counts, (std::set<std::size_t>{0, 1, 2, 3, kHopeless}));
}

TEST(PPDConstraints, PrefersWhatThePrinterNamesThenLessThenTheDefault) {
    const auto file = MakeFolder("ppd") / "printer.ppd";
    WriteFile(file, PPDText(PPDOption("PageSize", "A4", {"A4", "A3", "A5"}) +
                            PPDOption("InputSlot", "Tray1", {"Tray1", "Tray2"}) +
                            PPDOption("Duplex", "Long", {"Long", "None", "Short"}) +
                            PPDOption("MediaType", "Plain", {"Plain", "Labels", "Glossy"}) +
                            kOpenInstalled + PPDOption("Bin", "False", {"True", "False"}) +
                            kCloseInstalled +
                            "*UIConstraints: *PageSize A3 *InputSlot Tray1\n"
                            "*UIConstraints: *MediaType Labels *Duplex\n"
                            "*UIConstraints: *Duplex *MediaType Labels\n"
                            "*cupsUIConstraints gloss: \"*MediaType Glossy *Duplex *PageSize A5\"\n"
                            "*cupsUIResolver gloss: \"*PageSize A3\"\n"
                            "*CustomPageSize True: \"pop\"\n"
                            "*ParamCustomPageSize Width: 1 points 72 1000\n"
                            "*UIConstraints: *CustomPageSize True *MediaType Labels\n"
                            "*UIConstraints: *Bin False *Duplex Short\n"
                            "*UIConstraints: *PageRegion A5 *InputSlot Tray1\n"));
    const auto rules = PPDConstraints::Open(file, nullptr);
    ASSERT_TRUE(rules);
    const std::tuple<const char*, Selections, Selections> rows[] = {
        {"the paper stays, though the tray is the default",
         {{"PageSize", "A3"}},
         {{"InputSlot", "Tray2"}}},
        {"a paper by its other name", {{"PageSize", "A5"}}, {{"InputSlot", "Tray2"}}},
        {"off before the default, in any case", {{"mediatype", "LABELS"}}, {{"Duplex", "None"}}},
        {"the printer's own way, and what follows from it",
         {{"MediaType", "Glossy"}, {"PageSize", "A5"}, {"InputSlot", "Tray2"}},
         {{"PageSize", "A3"}}},
        {"a paper size that was typed",
         {{"PageSize", "Custom.300x400"}, {"Duplex", "None"}, {"MediaType", "Labels"}},
         {{"MediaType", "Plain"}}},
        {"nothing is installed", {{"Duplex", "Short"}}, {{"Duplex", "None"}}},
        {"unknown things are passed over", {{"Duplex", "Helix"}, {"Ink", "Red"}}, {}},
    };
    for (const auto& [why, chosen, changes] : rows) {
        SCOPED_TRACE(why);
        EXPECT_EQ(rules->resolution(chosen), changes);
        EXPECT_EQ(rules->conflicts(chosen).size(), changes.empty() ? 0u : 1u);
    }
}

}  // namespace
}  // namespace kalmo::test
