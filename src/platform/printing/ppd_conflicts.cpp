#include "printing/ppd_conflicts.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "printing/constraint_rules.h"
#include "printing/ppd_constraints_text.h"

namespace {

constexpr const char* kPaperSize = "PageSize";
/// Another name for a choice of it; as an option of its own nobody chooses it.
constexpr const char* kPaperRegion = "PageRegion";
constexpr std::string_view kTyped = "Custom";
constexpr std::string_view kTypedValue = "Custom.";

/// Keywords are told apart without regard to case.
bool AreSame(const std::string& keyword, const char* other) {
    return strcasecmp(keyword.c_str(), other) == 0;
}
struct ByKeyword {
    bool operator()(const std::string& left, const std::string& right) const {
        return strcasecmp(left.c_str(), right.c_str()) < 0;
    }
};

bool IsOff(const std::string& choice) {
    constexpr std::array kOff = {"None", "Off", "False"};
    return std::ranges::any_of(kOff, [&](const char* off) { return AreSame(choice, off); });
}

/// A value that was typed, such as "Custom.100x200", is the choice "Custom".
std::string ChoiceOf(const std::string& choice) {
    const bool isTyped = strncasecmp(choice.c_str(), kTypedValue.data(), kTypedValue.size()) == 0;
    return isTyped || choice.starts_with('{') ? std::string(kTyped) : choice;
}

/// One without a keyword, or whose keyword reads as a typed value, could not be asked for.
bool CanBeChosen(const std::string& choice) {
    return !choice.empty() && ChoiceOf(choice) == choice;
}

/// "CustomPageSize True" is how files say "PageSize Custom".
PPDSelection WithTypedChoice(PPDSelection selection) {
    if (!selection.option.starts_with(kTyped) || !AreSame(selection.choice, "True"))
        return selection;
    return {selection.option.substr(kTyped.size()), std::string(kTyped)};
}

/// The options of a file, and keywords as numbers.
class NumberedOptions final {
public:
    explicit NumberedOptions(const std::vector<WrittenOption>& options) {
        for (const WrittenOption& option : options)
            if (!AreSame(option.keyword, kPaperRegion)) add(option);
    }

    [[nodiscard]] const std::vector<ConstrainedOption>& options() const { return options_; }

    /// An empty choice stands for all that are not off. Nothing for what the file does not have.
    [[nodiscard]] std::optional<OptionChoice> find(const PPDSelection& selection) const {
        const bool isRegion = AreSame(selection.option, kPaperRegion) && !selection.choice.empty();
        const auto number = numbers_.find(isRegion ? kPaperSize : selection.option);
        if (number == numbers_.end()) return std::nullopt;
        if (selection.choice.empty()) return OptionChoice{number->second, kAnyChoiceButOff};
        const int choice = indexOf(number->second, ChoiceOf(selection.choice));
        return choice < 0 ? std::nullopt : std::optional(OptionChoice{number->second, choice});
    }

private:
    void add(const WrittenOption& option) {
        const int number = static_cast<int>(options_.size());
        if (!numbers_.try_emplace(option.keyword, number).second) return;
        auto& indices = choices_.emplace_back();
        ConstrainedOption& added = options_.emplace_back();
        added.keyword = option.keyword;
        added.isInstalled = option.isInstalled;
        added.isPaperSize = AreSame(option.keyword, kPaperSize);
        // One that the file names twice is one choice: its second naming is no way out.
        for (const std::string& choice : option.choices) {
            const int index = static_cast<int>(added.choices.size());
            if (CanBeChosen(choice) && indices.try_emplace(choice, index).second)
                added.choices.push_back({choice, IsOff(choice)});
        }
        added.defaultChoice = indexOf(number, ChoiceOf(option.defaultChoice));
    }
    [[nodiscard]] int indexOf(int option, const std::string& choice) const {
        const auto& indices = choices_[static_cast<std::size_t>(option)];
        const auto found = indices.find(choice);
        return found == indices.end() ? -1 : found->second;
    }

    std::vector<ConstrainedOption> options_;
    std::map<std::string, int, ByKeyword> numbers_;
    std::vector<std::map<std::string, int, ByKeyword>> choices_;  // by option
};

/// Two options at least, and not all of them are parts of the printer: no job changes those.
bool IsForJobs(const ConstraintRule& rule, const std::vector<ConstrainedOption>& options) {
    const auto isInstalled = [&](const OptionChoice& term) {
        return options[static_cast<std::size_t>(term.option)].isInstalled;
    };
    const auto isOther = [&](const OptionChoice& term) {
        return term.option != rule.terms.front().option;
    };
    return std::ranges::any_of(rule.terms, isOther) &&
           !std::ranges::all_of(rule.terms, isInstalled);
}

/// Of a rule over something that this printer does not have, nothing is left.
std::optional<ConstraintRule> RuleOf(const WrittenConstraint& constraint,
                                     const NumberedOptions& numbers) {
    ConstraintRule rule;
    for (const PPDSelection& written : constraint.terms) {
        const auto term = numbers.find(WithTypedChoice(written));
        if (!term) return std::nullopt;
        if (std::ranges::find(rule.terms, *term) == rule.terms.end()) rule.terms.push_back(*term);
    }
    for (const PPDSelection& written : constraint.preferred) {
        if (const auto change = numbers.find(WithTypedChoice(written)))
            rule.preferred.push_back(*change);
    }
    return IsForJobs(rule, numbers.options()) ? std::optional(std::move(rule)) : std::nullopt;
}

std::vector<ConstraintRule> RulesOf(const std::vector<WrittenConstraint>& constraints,
                                    const NumberedOptions& numbers) {
    std::vector<ConstraintRule> rules;
    for (const WrittenConstraint& constraint : constraints)
        if (auto rule = RuleOf(constraint, numbers)) rules.push_back(std::move(*rule));
    return rules;
}

class FileConstraints final : public PPDConstraints {
public:
    using PPDConstraints::resolution;

    explicit FileConstraints(const WrittenConstraints& written)
        : numbers_(written.options),
          rules_(numbers_.options(), RulesOf(written.constraints, numbers_)) {}

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
        const std::vector<PPDSelection>& chosen,
        const std::vector<std::string>& kept) const override {
        std::vector<int> keptIndices;
        for (const std::string& option : kept) {
            if (const auto found = numbers_.find({option, {}}))
                keptIndices.push_back(found->option);
        }
        const auto changes = rules_.fewestChanges(indicesOf(chosen), keptIndices);
        if (!changes) return std::nullopt;
        std::vector<PPDSelection> selections;
        for (const OptionChoice& change : *changes) selections.push_back(named(change));
        return selections;
    }

private:
    [[nodiscard]] ChosenIndices indicesOf(const std::vector<PPDSelection>& chosen) const {
        ChosenIndices indices = rules_.defaults();
        for (const PPDSelection& selection : chosen) {
            const auto found = selection.choice.empty() ? std::nullopt : numbers_.find(selection);
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

    NumberedOptions numbers_;
    ConstraintRules rules_;
};

}  // namespace

std::unique_ptr<PPDConstraints> PPDConstraints::Open(const std::string& path, std::string* reason) {
    const auto written = ReadWrittenConstraints(path, reason);
    return written ? std::make_unique<FileConstraints>(*written) : nullptr;
}
