// Constraints of PPD files, against libcups' own answers and against trying everything.
#include "printing/ppd_conflicts.h"

#include <cups/ppd.h>

#include <random>

#include "support/printer_files.h"
#include "support/programs.h"
#include "support/test.h"

#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kalmo::test {
namespace {

using Selections = std::vector<PPDSelection>;

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
    [[nodiscard]] const ppd_option_t* option(const std::string& keyword) const {
        return ppdFindOption(ppd_.get(), keyword.c_str());
    }
    /// The choice, or for none the first that turns the option on.
    [[nodiscard]] std::string choice(const std::string& keyword, const std::string& named) const {
        const ppd_option_t* found = option(keyword);
        for (int i = 0; found && i < found->num_choices; ++i) {
            const std::string each = found->choices[i].choice;
            if (named.empty() ? each != "None" && each != "Off" && each != "False" : each == named)
                return each;
        }
        return {};
    }
    /// There are such choices, and the rest of the printer does not forbid its parts.
    [[nodiscard]] bool canBeChosen(Selections chosen) const {
        if (std::ranges::any_of(chosen, [](const auto& each) { return each.choice.empty(); }))
            return false;
        std::erase_if(chosen, [&](const auto& each) { return !isInstalled(each.option); });
        return !conflictsForCups(chosen);
    }
    [[nodiscard]] bool isInstalled(const std::string& keyword) const {
        for (int i = 0; i < ppd_->num_groups; ++i) {
            const ppd_group_t& group = ppd_->groups[i];
            for (int j = 0; j < group.num_options; ++j)
                if (keyword == group.options[j].keyword)
                    return std::string("InstallableOptions") == group.name;
        }
        return false;
    }

    std::unique_ptr<PPDConstraints> rules;

private:
    std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)> ppd_;
};

Selections Changed(Selections chosen, const Selections& changes) {
    for (const PPDSelection& change : changes) {
        std::erase_if(chosen, [&](const auto& old) { return old.option == change.option; });
        chosen.push_back(change);
    }
    return chosen;
}

/// Nothing wrong: the changes end all conflicts and touch nothing else.
std::string FaultOf(const BothReaders& readers, const Selections& chosen) {
    const auto conflicts = readers.rules->conflicts(chosen);
    if (conflicts.empty() == readers.conflictsForCups(chosen)) return "libcups sees it otherwise";
    const auto changes = readers.rules->resolution(chosen);
    if (!changes) return "no way out";
    if (changes->empty() != conflicts.empty()) return "changed for nothing";
    for (const PPDSelection& change : *changes) {
        const bool isInConflict = std::ranges::any_of(conflicts, [&](const PPDConflict& conflict) {
            return std::ranges::find(conflict, change.option, &PPDSelection::option) !=
                   conflict.end();
        });
        if (!isInConflict) return "changes " + change.option + ", which is in no conflict";
        if (readers.isInstalled(change.option)) return "installs " + change.option;
    }
    const Selections after = Changed(chosen, *changes);
    if (!readers.rules->conflicts(after).empty()) return "a conflict stays";
    return readers.conflictsForCups(after) ? "a conflict stays for libcups" : "";
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

/// Options A to D with None, 1 and 2, and rules over them at random.
struct RandomPrinter {
    explicit RandomPrinter(unsigned seed) : random_(seed) {
        for (const char* option : kOptions) {
            text_ += PPDOption(option, any(kChoices), {"None", "1", "2"});
        }
        for (int rule = 0; rule < 9; ++rule) {
            std::string words;
            for (const char* option : kOptions)
                if (any({"yes", "no"}) == "yes")
                    words += std::string("*") + option + " " + any({"", "None", "1", "2"}) + " ";
            // A choice that is forbidden by itself is no conflict, though libcups counts it.
            if (std::ranges::count(words, '*') > 1)
                text_ += "*cupsUIConstraints: \"" + words + "\"\n";
        }
    }
    [[nodiscard]] std::string any(const std::vector<std::string>& of) {
        return of[random_() % of.size()];
    }
    [[nodiscard]] Selections anyChoices() {
        Selections chosen;
        for (const char* option : kOptions) chosen.push_back({option, any(kChoices)});
        return chosen;
    }
    [[nodiscard]] std::filesystem::path file() const {
        const auto file = MakeFolder("ppd") / "random.ppd";
        WriteFile(file, PPDText(text_));
        return file;
    }

    static inline const std::vector<const char*> kOptions = {"A", "B", "C", "D"};
    static inline const std::vector<std::string> kChoices = {"None", "1", "2"};

private:
    std::mt19937 random_;
    std::string text_;
};

/// By trying everything; nothing when nothing helps.
std::optional<std::size_t> FewestChanges(const PPDConstraints& rules, const Selections& chosen) {
    std::optional<std::size_t> fewest;
    std::set<std::string> inConflict;
    for (const PPDConflict& conflict : rules.conflicts(chosen))
        for (const PPDSelection& each : conflict) inConflict.insert(each.option);
    for (int number = 0; number < 81; ++number) {
        Selections tried;
        std::size_t changes = 0;
        bool isAllowed = true;
        for (int at = 0, rest = number; at < 4; ++at, rest /= 3) {
            const auto& before = chosen[static_cast<std::size_t>(at)];
            tried.push_back({before.option, RandomPrinter::kChoices[rest % 3]});
            changes += tried.back() != before;
            isAllowed = isAllowed && (tried.back() == before || inConflict.contains(before.option));
        }
        if (isAllowed && rules.conflicts(tried).empty())
            fewest = std::min(fewest.value_or(changes), changes);
    }
    return fewest;
}

TEST(PPDConstraints, ChangesAsFewAsCanBe) {
    int manyChanges = 0, hopeless = 0;
    for (unsigned seed = 0; seed < 100; ++seed) {
        RandomPrinter printer(seed);
        const BothReaders readers(printer.file());
        ASSERT_TRUE(readers.opened());
        for (int time = 0; time < 10; ++time) {
            const auto chosen = printer.anyChoices();
            SCOPED_TRACE(std::to_string(seed) + ": " + Text(chosen));
            EXPECT_EQ(!readers.rules->conflicts(chosen).empty(), readers.conflictsForCups(chosen));
            const auto changes = readers.rules->resolution(chosen);
            const auto fewest = FewestChanges(*readers.rules, chosen);
            ASSERT_EQ(changes.has_value(), fewest.has_value());
            EXPECT_EQ(changes ? changes->size() : 0, fewest.value_or(0));
            manyChanges += changes && changes->size() > 1;
            hopeless += !changes;
        }
    }
    EXPECT_GT(manyChanges, 20);
    EXPECT_GT(hopeless, 0);
}

TEST(PPDConstraints, PrefersWhatThePrinterNamesThenLessThenTheDefault) {
    const auto file = MakeFolder("ppd") / "printer.ppd";
    WriteFile(file, PPDText(PPDOption("PageSize", "A4", {"A4", "A3", "A5"}) +
                            PPDOption("InputSlot", "Tray1", {"Tray1", "Tray2"}) +
                            PPDOption("Duplex", "Long", {"Long", "None", "Short"}) +
                            PPDOption("MediaType", "Plain", {"Plain", "Labels", "Glossy"}) +
                            "*OpenGroup: InstallableOptions/Installed\n" +
                            PPDOption("Bin", "False", {"True", "False"}) +
                            "*CloseGroup: InstallableOptions\n"
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
