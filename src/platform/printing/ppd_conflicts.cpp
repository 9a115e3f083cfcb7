#include "printing/ppd_conflicts.h"

#include <cups/ppd.h>
#include <strings.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <span>
#include <sstream>

#include "printing/constraint_rules.h"
#include "printing/ppd_file.h"

// libcups' PPD calls are marked as deprecated since PPD files are to go; printers still bring them.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace {

struct ClosePPD {
    void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};
using PPDFile = std::unique_ptr<ppd_file_t, ClosePPD>;

constexpr const char* kPaperSize = "PageSize";
/// Another name for a choice of it; as an option of its own nobody chooses it.
constexpr const char* kPaperRegion = "PageRegion";
constexpr const char* kTyped = "Custom";

/// libcups tells keywords apart without regard to case.
bool AreSame(const char* keyword, const char* other) { return strcasecmp(keyword, other) == 0; }

bool IsOff(const char* choice) {
    constexpr std::array kOff = {"None", "Off", "False"};
    return std::ranges::any_of(kOff, [&](const char* off) { return AreSame(choice, off); });
}

/// The options of a file by number, and keywords as numbers.
class NumberedOptions final {
public:
    explicit NumberedOptions(ppd_file_t* ppd) : ppd_(ppd) {
        for (const ppd_group_t& group :
             std::span(ppd->groups, static_cast<std::size_t>(ppd->num_groups))) {
            addGroup(group, AreSame(group.name, "InstallableOptions"));
        }
    }

    std::vector<ConstrainedOption> take() { return std::move(options_); }

    /// An empty choice stands for all that are not off. Nothing for what the file does not have.
    [[nodiscard]] std::optional<OptionChoice> find(const std::string& keyword,
                                                   const std::string& choice) const {
        const bool isRegion = AreSame(keyword.c_str(), kPaperRegion) && !choice.empty();
        ppd_option_t* option = ppdFindOption(ppd_, isRegion ? kPaperSize : keyword.c_str());
        const auto number = numbers_.find(option);
        if (!option || number == numbers_.end()) return std::nullopt;
        if (choice.empty()) return OptionChoice{number->second, kAnyChoiceButOff};
        const ppd_choice_t* found = ppdFindChoice(option, choice.c_str());
        if (!found) return std::nullopt;
        return OptionChoice{number->second, static_cast<int>(found - option->choices)};
    }

private:
    void addGroup(const ppd_group_t& group, bool isInstalled) {
        for (ppd_option_t& option :
             std::span(group.options, static_cast<std::size_t>(group.num_options))) {
            addOption(option, isInstalled);
        }
        for (const ppd_group_t& inner :
             std::span(group.subgroups, static_cast<std::size_t>(group.num_subgroups))) {
            addGroup(inner, isInstalled);
        }
    }
    void addOption(ppd_option_t& option, bool isInstalled) {
        if (AreSame(option.keyword, kPaperRegion)) return;
        numbers_.emplace(&option, static_cast<int>(options_.size()));
        ConstrainedOption& added = options_.emplace_back();
        added.keyword = option.keyword;
        added.isInstalled = isInstalled;
        added.isPaperSize = AreSame(option.keyword, kPaperSize);
        for (const ppd_choice_t& choice :
             std::span(option.choices, static_cast<std::size_t>(option.num_choices))) {
            added.choices.push_back({choice.choice, IsOff(choice.choice)});
        }
        if (const ppd_choice_t* choice = ppdFindChoice(&option, option.defchoice)) {
            added.defaultChoice = static_cast<int>(choice - option.choices);
        }
    }

    ppd_file_t* ppd_;
    std::vector<ConstrainedOption> options_;
    std::map<const ppd_option_t*, int> numbers_;
};

using Words = std::vector<std::pair<std::string, std::string>>;

/// "*Duplex *InputSlot Tray1": keywords with the choice behind them, or none.
Words ReadWords(const char* text) {
    Words words;
    std::istringstream stream(text ? text : "");
    for (std::string word; stream >> word;) {
        if (word.starts_with('*')) {
            words.emplace_back(word.substr(1), "");
        } else if (!words.empty() && words.back().second.empty()) {
            words.back().second = word;
        }
    }
    return words;
}

/// "CustomPageSize True" is how files say "PageSize Custom".
void NameTypedChoice(std::string* keyword, std::string* choice) {
    if (!keyword->starts_with(kTyped) || !AreSame(choice->c_str(), "True")) return;
    keyword->erase(0, std::string_view(kTyped).size());
    *choice = kTyped;
}

class RuleReader final {
public:
    RuleReader(ppd_file_t* ppd, const NumberedOptions& numbers,
               const std::vector<ConstrainedOption>& options)
        : ppd_(ppd), numbers_(numbers), options_(options) {}

    std::vector<ConstraintRule> read() {
        for (const ppd_const_t& pair :
             std::span(ppd_->consts, static_cast<std::size_t>(ppd_->num_consts))) {
            add({{pair.option1, pair.choice1}, {pair.option2, pair.choice2}}, {});
        }
        for (const auto* set = ppdFindAttr(ppd_, "cupsUIConstraints", nullptr); set;
             set = ppdFindNextAttr(ppd_, "cupsUIConstraints", nullptr)) {
            sets_.push_back(set);
        }
        // libcups keeps one place in the file: it is asked for the next thing after the last one.
        for (const auto* set : sets_) add(ReadWords(set->value), resolver(set->spec));
        return std::move(rules_);
    }

private:
    void add(const Words& words, const Words& preferred) {
        ConstraintRule rule;
        for (const auto& [keyword, choice] : words) {
            const auto term = read(keyword, choice);
            // Of a rule over something that this printer does not have, nothing is left.
            if (!term) return;
            if (std::ranges::find(rule.terms, *term) == rule.terms.end()) {
                rule.terms.push_back(*term);
            }
        }
        for (const auto& [keyword, choice] : preferred) {
            if (const auto change = read(keyword, choice)) rule.preferred.push_back(*change);
        }
        if (isForJobs(rule)) rules_.push_back(std::move(rule));
    }

    [[nodiscard]] std::optional<OptionChoice> read(std::string keyword, std::string choice) const {
        NameTypedChoice(&keyword, &choice);
        return numbers_.find(keyword, choice);
    }

    /// Two options at least, and not all of them are parts of the printer: no job changes those.
    [[nodiscard]] bool isForJobs(const ConstraintRule& rule) const {
        const auto isInstalled = [&](const OptionChoice& term) {
            return options_[static_cast<std::size_t>(term.option)].isInstalled;
        };
        return std::ranges::any_of(rule.terms,
                                   [&](const OptionChoice& term) {
                                       return term.option != rule.terms.front().option;
                                   }) &&
               !std::ranges::all_of(rule.terms, isInstalled);
    }

    [[nodiscard]] Words resolver(const char* name) {
        if (!*name) return {};
        auto [known, isNew] = resolvers_.try_emplace(name);
        if (isNew) {
            const auto* found = ppdFindAttr(ppd_, "cupsUIResolver", name);
            known->second = ReadWords(found ? found->value : nullptr);
        }
        return known->second;
    }

    ppd_file_t* ppd_;
    const NumberedOptions& numbers_;
    const std::vector<ConstrainedOption>& options_;
    std::vector<const ppd_attr_t*> sets_;
    std::map<std::string, Words> resolvers_;
    std::vector<ConstraintRule> rules_;
};

class FileConstraints final : public PPDConstraints {
public:
    explicit FileConstraints(PPDFile ppd)
        : ppd_(std::move(ppd)), numbers_(ppd_.get()), rules_(readRules()) {}

    [[nodiscard]] std::vector<PPDConflict> conflicts(
        const std::vector<PPDSelection>& chosen) const override {
        const ChosenIndices indices = indicesOf(chosen);
        std::vector<PPDConflict> found;
        std::set<PPDConflict> seen;
        for (const ConstraintRule* rule : rules_.broken(indices)) {
            PPDConflict conflict = namesOf(*rule, indices);
            auto sorted = conflict;
            std::ranges::sort(sorted);
            if (seen.insert(std::move(sorted)).second) found.push_back(std::move(conflict));
        }
        return found;
    }

    [[nodiscard]] std::optional<std::vector<PPDSelection>> resolution(
        const std::vector<PPDSelection>& chosen) const override {
        const auto changes = rules_.fewestChanges(indicesOf(chosen));
        if (!changes) return std::nullopt;
        std::vector<PPDSelection> selections;
        for (const OptionChoice& change : *changes) selections.push_back(named(change));
        return selections;
    }

private:
    [[nodiscard]] ConstraintRules readRules() {
        auto options = numbers_.take();
        auto rules = RuleReader(ppd_.get(), numbers_, options).read();
        return {std::move(options), std::move(rules)};
    }
    [[nodiscard]] ChosenIndices indicesOf(const std::vector<PPDSelection>& chosen) const {
        ChosenIndices indices = rules_.defaults();
        for (const auto& [option, choice] : chosen) {
            const auto found = choice.empty() ? std::nullopt : numbers_.find(option, choice);
            if (found) indices[static_cast<std::size_t>(found->option)] = found->choice;
        }
        return indices;
    }
    /// What is chosen of the options that the rule is about, each once.
    [[nodiscard]] PPDConflict namesOf(const ConstraintRule& rule,
                                      const ChosenIndices& chosen) const {
        PPDConflict names;
        for (const auto& [option, ignored] : rule.terms) {
            PPDSelection name = named({option, chosen[static_cast<std::size_t>(option)]});
            if (std::ranges::find(names, name) == names.end()) names.push_back(std::move(name));
        }
        return names;
    }
    [[nodiscard]] PPDSelection named(const OptionChoice& selection) const {
        const auto& option = rules_.options()[static_cast<std::size_t>(selection.option)];
        return {option.keyword, option.choices[static_cast<std::size_t>(selection.choice)].keyword};
    }

    PPDFile ppd_;
    NumberedOptions numbers_;
    ConstraintRules rules_;
};

}  // namespace

std::unique_ptr<PPDConstraints> PPDConstraints::Open(const std::string& path, std::string* reason) {
    PPDFile ppd(OpenPPDFile(path, reason));
    return ppd ? std::make_unique<FileConstraints>(std::move(ppd)) : nullptr;
}
