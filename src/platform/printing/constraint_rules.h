// What a printer forbids together, as numbers, and the fewest changes that end it. Knows no PPD
// file.
#pragma once

#include <compare>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

struct ConstrainedOption {
    struct Choice {
        std::string keyword;
        bool isOff = false;  // "None", "Off", "False"
    };
    std::string keyword;
    std::vector<Choice> choices;
    int defaultChoice = -1;    // -1: none
    bool isInstalled = false;  // a part of the printer: no job changes it
    bool isPaperSize = false;
};

inline constexpr int kAnyChoiceButOff = -1;

/// An option at a choice. Ordered to be told apart.
struct OptionChoice {
    int option = 0;
    int choice = 0;  // in a rule also kAnyChoiceButOff
    auto operator<=>(const OptionChoice&) const = default;
};

/// All of `terms` together are forbidden; each is of another option. `preferred`: what the printer
/// would rather change.
struct ConstraintRule {
    std::vector<OptionChoice> terms, preferred;
};

/// The index of each option's choice; -1: it has none.
using ChosenIndices = std::vector<int>;

class ConstraintRules final {
public:
    ConstraintRules(std::vector<ConstrainedOption> options, std::vector<ConstraintRule> rules);

    [[nodiscard]] const std::vector<ConstrainedOption>& options() const { return options_; }
    [[nodiscard]] const std::vector<ConstraintRule>& rules() const { return rules_; }
    [[nodiscard]] ChosenIndices defaults() const;

    /// The rules that `chosen` breaks, in order.
    [[nodiscard]] std::vector<const ConstraintRule*> broken(const ChosenIndices& chosen) const;

    /// The fewest changes of options in broken rules after which none is broken. Of equally few:
    /// what the printer prefers; another paper size last; then off, the default, the first choice.
    /// None of the options `kept`.
    /// Nothing when there are none, or when finding them takes far longer than any printer's rules.
    [[nodiscard]] std::optional<std::vector<OptionChoice>> fewestChanges(
        const ChosenIndices& chosen, const std::vector<int>& kept = {}) const;

    /// The changes worth trying to take `rule` out of force, best first; `isFree` by
    /// option. Of choices that all rules treat alike, the best one.
    [[nodiscard]] std::vector<OptionChoice> waysOut(const ConstraintRule& rule,
                                                    const std::vector<bool>& isFree) const;

private:
    [[nodiscard]] bool isBroken(const ConstraintRule& rule, const ChosenIndices& chosen) const;

    std::vector<ConstrainedOption> options_;
    std::vector<ConstraintRule> rules_;
    /// By option, best first.
    std::vector<std::vector<int>> worthTrying_;
};
