#include "printing/constraint_rules.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <tuple>
#include <utility>

namespace {

/// Terms looked at, after which the search for changes gives up: about a tenth of a second.
constexpr long kMostLooks = 20'000'000;

template <typename Items>
decltype(auto) At(Items& items, int index) {
    return items[static_cast<std::size_t>(index)];
}

/// Whether a rule's term is true of its option at `choice`.
bool Fits(const OptionChoice& term, int choice, const ConstrainedOption& option) {
    if (term.choice != kAnyChoiceButOff) return choice == term.choice;
    return choice >= 0 && !At(option.choices, choice).isOff;
}

/// By option and choice: the rules that name it.
using Mentions = std::vector<std::vector<std::vector<std::size_t>>>;

Mentions FindMentions(const std::vector<ConstrainedOption>& options,
                      const std::vector<ConstraintRule>& rules) {
    Mentions mentions;
    for (const auto& option : options) mentions.emplace_back(option.choices.size());
    for (std::size_t rule = 0; rule < rules.size(); ++rule) {
        for (const OptionChoice& term : rules[rule].terms) {
            if (term.choice >= 0) At(At(mentions, term.option), term.choice).push_back(rule);
        }
    }
    return mentions;
}

/// How gladly a change is made, least first: off, the default, any other.
auto ReluctanceTo(int choice, const ConstrainedOption& option) {
    return std::tuple(!At(option.choices, choice).isOff, choice != option.defaultChoice);
}

/// The best first. Choices that are in the same rules are worth one try.
std::vector<int> OneOfEachKind(const ConstrainedOption& option,
                               const std::vector<std::vector<std::size_t>>& mentions) {
    std::vector<int> choices(option.choices.size());
    std::iota(choices.begin(), choices.end(), 0);
    std::ranges::stable_sort(choices, {}, [&](int choice) { return ReluctanceTo(choice, option); });
    std::set<std::pair<bool, std::vector<std::size_t>>> seen;
    std::erase_if(choices, [&](int choice) {
        return !seen.emplace(At(option.choices, choice).isOff, At(mentions, choice)).second;
    });
    return choices;
}

auto ReluctanceTo(OptionChoice change, const ConstrainedOption& option,
                  const ConstraintRule& rule) {
    const auto isMeant = [&](const OptionChoice& meant) {
        return meant.option == change.option &&
               (meant.choice == change.choice || meant.choice == kAnyChoiceButOff);
    };
    const bool isPreferred = std::ranges::any_of(rule.preferred, isMeant);
    return std::tuple(!isPreferred, option.isPaperSize, ReluctanceTo(change.choice, option),
                      change.option);
}

/// Goes through ever more changes, deeper by one each time; each step ends one broken rule.
class ChangeSearch final {
public:
    ChangeSearch(const ConstraintRules& rules, ChosenIndices chosen, const std::vector<int>& kept)
        : rules_(rules), chosen_(std::move(chosen)), isFree_(chosen_.size()) {
        for (const ConstraintRule* rule : rules.broken(chosen_)) {
            for (const OptionChoice& term : rule->terms) {
                At(isFree_, term.option) = !At(rules.options(), term.option).isInstalled;
            }
        }
        for (const int option : kept) At(isFree_, option) = false;
    }

    std::optional<std::vector<OptionChoice>> run() {
        const auto most = std::ranges::count(isFree_, true);
        for (auto count = 0; count <= most && looks_ < kMostLooks; ++count) {
            if (endsWithin(count)) return changes_;
        }
        return std::nullopt;
    }

private:
    [[nodiscard]] bool endsWithin(int changesLeft) {
        looks_ += static_cast<long>(rules_.rules().size());
        const auto broken = rules_.broken(chosen_);
        if (broken.empty()) return true;
        if (looks_ >= kMostLooks || changesNeeded(broken) > changesLeft) return false;
        const auto ways = rules_.waysOut(*broken.front(), isFree_);
        return std::ranges::any_of(
            ways, [&](const OptionChoice& change) { return leadsOut(change, changesLeft); });
    }

    [[nodiscard]] bool leadsOut(const OptionChoice& change, int changesLeft) {
        const int before = std::exchange(At(chosen_, change.option), change.choice);
        At(isFree_, change.option) = false;
        changes_.push_back(change);
        if (endsWithin(changesLeft - 1)) return true;
        changes_.pop_back();
        At(isFree_, change.option) = true;
        At(chosen_, change.option) = before;
        return false;
    }

    /// At least so many: rules without a free option in common take a change each.
    [[nodiscard]] int changesNeeded(const std::vector<const ConstraintRule*>& broken) {
        int needed = 0;
        auto isLeft = isFree_;
        for (const ConstraintRule* rule : broken) {
            const auto isFree = [&](const OptionChoice& term) {
                return bool(At(isFree_, term.option));
            };
            const auto isTaken = [&](const OptionChoice& term) {
                return isFree(term) && !At(isLeft, term.option);
            };
            looks_ += static_cast<long>(rule->terms.size());
            if (std::ranges::none_of(rule->terms, isFree)) return kImpossible;
            if (std::ranges::any_of(rule->terms, isTaken)) continue;
            for (const OptionChoice& term : rule->terms) At(isLeft, term.option) = false;
            ++needed;
        }
        return needed;
    }

    static constexpr int kImpossible = 1 << 30;

    const ConstraintRules& rules_;
    ChosenIndices chosen_;
    std::vector<bool> isFree_;
    std::vector<OptionChoice> changes_;
    long looks_ = 0;
};

}  // namespace

ConstraintRules::ConstraintRules(std::vector<ConstrainedOption> options,
                                 std::vector<ConstraintRule> rules)
    : options_(std::move(options)), rules_(std::move(rules)) {
    const Mentions mentions = FindMentions(options_, rules_);
    for (std::size_t option = 0; option < options_.size(); ++option) {
        worthTrying_.push_back(OneOfEachKind(options_[option], mentions[option]));
    }
}

ChosenIndices ConstraintRules::defaults() const {
    ChosenIndices chosen;
    for (const auto& option : options_) chosen.push_back(option.defaultChoice);
    return chosen;
}

bool ConstraintRules::isBroken(const ConstraintRule& rule, const ChosenIndices& chosen) const {
    for (const OptionChoice& term : rule.terms) {
        if (!Fits(term, At(chosen, term.option), At(options_, term.option))) return false;
    }
    return true;
}

std::vector<const ConstraintRule*> ConstraintRules::broken(const ChosenIndices& chosen) const {
    std::vector<const ConstraintRule*> found;
    for (const ConstraintRule& rule : rules_) {
        if (isBroken(rule, chosen)) found.push_back(&rule);
    }
    return found;
}

std::vector<OptionChoice> ConstraintRules::waysOut(const ConstraintRule& rule,
                                                   const std::vector<bool>& isFree) const {
    const auto reluctance = [&](const OptionChoice& change) {
        return ReluctanceTo(change, At(options_, change.option), rule);
    };
    std::vector<OptionChoice> ways;
    for (const OptionChoice& term : rule.terms) {
        if (!At(isFree, term.option)) continue;
        auto choices = At(worthTrying_, term.option);
        for (const OptionChoice& preferred : rule.preferred) {
            if (preferred.option == term.option && preferred.choice >= 0) {
                choices.push_back(preferred.choice);
            }
        }
        for (const int choice : choices) {
            if (!Fits(term, choice, At(options_, term.option))) {
                ways.push_back({term.option, choice});
            }
        }
    }
    std::ranges::stable_sort(ways, {}, reluctance);
    return ways;
}

std::optional<std::vector<OptionChoice>> ConstraintRules::fewestChanges(
    const ChosenIndices& chosen, const std::vector<int>& kept) const {
    return ChangeSearch(*this, chosen, kept).run();
}
