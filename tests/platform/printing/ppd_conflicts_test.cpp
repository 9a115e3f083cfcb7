// Constraints of PPD files, against libcups' own answers and against trying everything.
#include "printing/ppd_conflicts.h"

#include <cups/ppd.h>

#include <random>
#include <span>

#include "support/printer_files.h"
#include "support/programs.h"
#include "support/test.h"

#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kalmo::test {
namespace {

using Selections = std::vector<PPDSelection>;
using Words = std::vector<std::string>;

const std::string kInstalled = "InstallableOptions";

/// One PPD file as we read it and as libcups does.
class BothReaders {
public:
    explicit BothReaders(const std::filesystem::path& file)
        : rules(PPDConstraints::Open(file, nullptr)), ppd_(ppdOpenFile(file.c_str()), ppdClose) {}

    [[nodiscard]] bool opened() const { return rules && ppd_; }
    [[nodiscard]] bool conflictsForCups(const Selections& chosen) const {
        ppdMarkDefaults(ppd_.get());
        for (const auto& [option, choice] : chosen)
            ppdMarkOption(ppd_.get(), option.c_str(), choice.c_str());
        return ppdConflicts(ppd_.get()) > 0;
    }
    /// The choice, or for none the first that turns the option on.
    [[nodiscard]] std::string choice(const std::string& keyword, const std::string& named) const {
        const ppd_option_t* found = ppdFindOption(ppd_.get(), keyword.c_str());
        for (int i = 0; found && i < found->num_choices; ++i) {
            const std::string each = found->choices[i].choice;
            if (named.empty() ? each != "None" && each != "Off" && each != "False" : each == named)
                return each;
        }
        return {};
    }
    /// There are such choices, and the rest of the printer does not forbid its parts.
    [[nodiscard]] bool canBeChosen(Selections chosen) const {
        if (std::ranges::find(chosen, "", &PPDSelection::choice) != chosen.end()) return false;
        std::erase_if(chosen, [&](const auto& each) { return !isInstalled(each.option); });
        return !conflictsForCups(chosen);
    }
    [[nodiscard]] bool isInstalled(const std::string& keyword) const {
        for (const ppd_group_t& group : std::span(ppd_->groups, ppd_->num_groups))
            for (const ppd_option_t& option : std::span(group.options, group.num_options))
                if (keyword == option.keyword) return group.name == kInstalled;
        return false;
    }

    std::unique_ptr<PPDConstraints> rules;

private:
    std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)> ppd_;
};

std::set<std::string> OptionsIn(const std::vector<PPDConflict>& conflicts) {
    std::set<std::string> options;
    for (const PPDConflict& conflict : conflicts)
        for (const PPDSelection& each : conflict) options.insert(each.option);
    return options;
}

/// Nothing wrong: the changes end all conflicts and touch nothing else.
std::string FaultOf(const BothReaders& readers, Selections chosen) {
    const auto conflicts = readers.rules->conflicts(chosen);
    if (conflicts.empty() == readers.conflictsForCups(chosen)) return "libcups sees it otherwise";
    const auto changes = readers.rules->resolution(chosen);
    if (!changes) return "no way out";
    for (const PPDSelection& change : *changes) {
        if (!OptionsIn(conflicts).contains(change.option)) return "no need for " + change.option;
        if (readers.isInstalled(change.option)) return "installs " + change.option;
        chosen.push_back(change);
    }
    if (!readers.rules->conflicts(chosen).empty()) return "a conflict stays";
    return readers.conflictsForCups(chosen) ? "a conflict stays for libcups" : "";
}

std::string Text(const Selections& chosen) {
    std::string text;
    for (const auto& [option, choice] : chosen) text += option + "=" + choice + " ";
    return text;
}

/// The sample printers, and two real ones: pairs of choices, and sets of them.
std::vector<std::string> Files() {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(SamplePPD("x").parent_path()))
        if (entry.path().extension() == ".ppd") files.push_back(entry.path());
    for (const char* name : {"designjet_z5400-postscript", "pagewide_color_mfp_586-ps"}) {
        const auto file = std::string("postscript-hp:0/ppd/hplip/HP/hp-") + name + ".ppd";
        const auto end = RunProgram({"/usr/lib/cups/driver/postscript-hp", {"cat", file}});
        files.push_back(MakeFolder("ppd") / "printer.ppd");
        WriteFile(files.back(), end.output);
    }
    return files;
}

TEST(PPDConstraints, EveryConstraintEndsByChangesOfItsOptionsAlone) {
    const auto files = Files();
    int met = 0;
    for (const std::string& file : files) {
        const BothReaders readers(file);
        ASSERT_TRUE(readers.opened()) << file;
        for (const auto& words : ConstraintsIn(file)) {
            Selections chosen;
            for (const auto& [option, choice] : words)
                chosen.push_back({option, readers.choice(option, choice)});
            if (!readers.canBeChosen(chosen)) continue;
            ++met;
            EXPECT_FALSE(readers.rules->conflicts(chosen).empty()) << Text(chosen);
            EXPECT_EQ(FaultOf(readers, chosen), "") << file << ": " << Text(chosen);
        }
    }
    EXPECT_GT(met, 2000);
    EXPECT_GE(files.size(), 4u);
}

const Words kOptions = {"A", "B", "C", "D"}, kChoices = {"None", "1", "2"};

std::string AnyOf(const Words& words, std::mt19937& random) {
    return words[random() % words.size()];
}

/// A PPD file with rules at random.
std::filesystem::path RandomPrinter(std::mt19937& random) {
    std::string text;
    for (const auto& option : kOptions)
        text += PPDOption(option, AnyOf(kChoices, random), kChoices);
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

TEST(PPDConstraints, ChangesAsFewAsCanBe) {
    std::mt19937 random(1);
    std::set<std::size_t> counts;
    for (int time = 0; time < 400; ++time) {
        const BothReaders readers(RandomPrinter(random));
        ASSERT_TRUE(readers.opened());
        Selections chosen;
        for (const auto& option : kOptions) chosen.push_back({option, AnyOf(kChoices, random)});
        SCOPED_TRACE(Text(chosen));
        const auto conflicts = readers.rules->conflicts(chosen);
        EXPECT_EQ(!conflicts.empty(), readers.conflictsForCups(chosen));
        const auto fewest = FewestChanges(*readers.rules, chosen, OptionsIn(conflicts));
        const auto changes = readers.rules->resolution(chosen);
        EXPECT_EQ(changes ? changes->size() : kHopeless, fewest);
        counts.insert(fewest);
    }
    EXPECT_EQ(counts, (std::set<std::size_t>{0, 1, 2, 3, kHopeless}));
}

TEST(PPDConstraints, PrefersWhatThePrinterNamesThenLessThenTheDefault) {
    const auto file = MakeFolder("ppd") / "printer.ppd";
    WriteFile(file,
              PPDText(PPDOption("PageSize", "A4", {"A4", "A3", "A5"}) +
                      PPDOption("InputSlot", "Tray1", {"Tray1", "Tray2"}) +
                      PPDOption("Duplex", "Long", {"Long", "None", "Short"}) +
                      PPDOption("MediaType", "Plain", {"Plain", "Labels", "Glossy"}) +
                      "*OpenGroup: " + kInstalled + "/Installed\n" +
                      PPDOption("Bin", "False", {"True", "False"}) + "*CloseGroup: " + kInstalled +
                      "\n"
                      "*UIConstraints: *PageSize A3 *InputSlot Tray1\n"
                      "*UIConstraints: *MediaType Labels *Duplex\n"
                      "*UIConstraints: *Duplex *MediaType Labels\n"
                      "*cupsUIConstraints gloss: \"*MediaType Glossy *Duplex *PageSize A5\"\n"
                      "*cupsUIResolver gloss: \"*PageSize A3\"\n"
                      "*CustomPageSize True: \"pop\"\n"
                      "*ParamCustomPageSize Width: 1 points 72 1000\n"
                      "*UIConstraints: *CustomPageSize True *MediaType Labels\n"
                      "*UIConstraints: *Bin False *Duplex Short\n"));
    const auto rules = PPDConstraints::Open(file, nullptr);
    ASSERT_TRUE(rules);
    const std::tuple<const char*, Selections, Selections> rows[] = {
        {"the paper stays, though the tray is the default",
         {{"PageSize", "A3"}},
         {{"InputSlot", "Tray2"}}},
        {"off before the default", {{"MediaType", "Labels"}}, {{"Duplex", "None"}}},
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
