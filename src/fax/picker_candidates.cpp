#include "fax/picker_candidates.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>

#include "contacts/collation.h"
#include "fax/fax_address_book.h"

namespace kalmo {
namespace {

using contacts::Entry;
using contacts::Folded;
using contacts::Label;
using contacts::Person;
using contacts::SortKey;
using Index = PickerCandidates::Index;

constexpr OSType kColumns[] = {kLastNameColumn, kFirstNameColumn, kFaxNumberColumn, kLabelColumn,
                               kOrganizationColumn};
/// Behind a text, and between two keys: less than all that stands in them.
constexpr char kEnd = '\0';

/// Those who have one name only stand among the last names.
std::string NameKey(const Person& person) {
    const PersonNames names = NamesOf(person);
    return names.last.empty() ? SortKey(names.first)
                              : SortKey(names.last) + kEnd + SortKey(names.first);
}

/// `values` in the order of their keys, equal ones as they stood.
template <typename Value, typename KeyOf>
std::vector<Value> SortedByKey(std::vector<Value> values, const KeyOf& keyOf) {
    std::vector<std::pair<std::string, Value>> keyed;
    keyed.reserve(values.size());
    for (Value& value : values) {
        std::string key = keyOf(value);
        keyed.emplace_back(std::move(key), std::move(value));
    }
    std::ranges::stable_sort(keyed, {}, &std::pair<std::string, Value>::first);
    std::ranges::transform(keyed, values.begin(),
                           [](auto& pair) { return std::move(pair.second); });
    return values;
}

/// Fax numbers before others, each kind in the order of the card.
std::vector<Index> EntriesOf(const Person& person) {
    std::vector<Index> entries;
    for (const bool isFax : {true, false})
        for (Index i = 0; i < person.phones.size(); ++i)
            if (contacts::IsFax(person.phones[i].label) == isFax && !person.phones[i].value.empty())
                entries.push_back(i);
    return entries;
}

/// Each text's key once: few labels and organizations serve many persons.
class Keys final {
public:
    const std::string& of(const std::string& text) {
        const auto [place, isNew] = keys_.try_emplace(text);
        if (isNew) place->second = SortKey(text);
        return place->second;
    }

private:
    std::unordered_map<std::string, std::string> keys_;
};

/// From 0; the same place for the same text.
std::vector<Index> Ranks(const PickerCandidates& candidates, OSType column) {
    Keys keys;
    std::vector<std::pair<const std::string*, Index>> keyed;
    keyed.reserve(candidates.count());
    for (Index i = 0; i < candidates.count(); ++i)
        keyed.emplace_back(&keys.of(candidates.text(i, column)), i);
    std::ranges::sort(
        keyed, [](const auto& left, const auto& right) { return *left.first < *right.first; });
    std::vector<Index> ranks(keyed.size());
    Index rank = 0;
    for (std::size_t i = 0; i < keyed.size(); ++i) {
        if (i > 0 && *keyed[i - 1].first != *keyed[i].first) ++rank;
        ranks[keyed[i].second] = rank;
    }
    return ranks;
}

}  // namespace

PickerCandidates::PickerCandidates(contacts::Contacts contacts, PickerWords words)
    : contacts_(std::move(contacts)), words_(std::move(words)) {
    contacts_.persons = SortedByKey(std::move(contacts_.persons), NameKey);
    listCandidates();
    listGroups();
    for (std::size_t i = 0; i < kColumnCount; ++i) ranks_[i] = Ranks(*this, kColumns[i]);
}

void PickerCandidates::listCandidates() {
    for (Index person = 0; person < contacts_.persons.size(); ++person) {
        firstOfPerson_.push_back(count());
        const Person& card = contacts_.persons[person];
        const PersonNames names = NamesOf(card);
        const std::string foldedNames = Folded(names.last) + kEnd + Folded(names.first) + kEnd;
        for (const Index entry : EntriesOf(card)) {
            const Entry& phone = card.phones[entry];
            candidates_.push_back({.person = person,
                                   .entry = entry,
                                   .folded = foldedNames + Folded(phone.value) + kEnd +
                                             Folded(labelOf(phone)) + kEnd});
        }
    }
    firstOfPerson_.push_back(count());
}

PickerCandidates::Members PickerCandidates::membersByName() const {
    std::unordered_map<std::string_view, Index> personOf;
    for (Index i = 0; i < contacts_.persons.size(); ++i)
        personOf.emplace(contacts_.persons[i].uid, i);
    Members membersOf;
    for (const contacts::Group& group : contacts_.groups) {
        std::set<Index>& members = membersOf[group.name];
        for (const std::string& uid : group.members)
            if (const auto found = personOf.find(uid); found != personOf.end())
                members.insert(found->second);
    }
    for (Index i = 0; i < contacts_.persons.size(); ++i)
        for (const std::string& name : contacts_.persons[i].groups) membersOf[name].insert(i);
    return membersOf;
}

void PickerCandidates::listGroups() {
    std::vector<bool> isAlone(contacts_.persons.size(), true);
    for (const auto& [name, members] : membersByName()) {
        Group group{.name = name.empty() ? words_.namelessGroup : name, .candidates = {}};
        for (const Index person : members) {
            addPerson(person, group);
            isAlone[person] = false;
        }
        groups_.push_back(std::move(group));
    }
    groups_ =
        SortedByKey(std::move(groups_), [](const Group& group) { return SortKey(group.name); });
    Group others{.name = words_.noGroup, .candidates = {}};
    for (Index i = 0; i < contacts_.persons.size(); ++i)
        if (isAlone[i]) addPerson(i, others);
    if (!others.candidates.empty()) groups_.push_back(std::move(others));
}

void PickerCandidates::addPerson(Index person, Group& group) const {
    for (Index i = firstOfPerson_[person]; i < firstOfPerson_[person + 1]; ++i)
        group.candidates.push_back(i);
}

const Person& PickerCandidates::personOf(Index candidate) const {
    return contacts_.persons[candidates_[candidate].person];
}

const Entry& PickerCandidates::entryOf(Index candidate) const {
    return personOf(candidate).phones[candidates_[candidate].entry];
}

const std::string& PickerCandidates::labelOf(Index candidate) const {
    return labelOf(entryOf(candidate));
}

const std::string& PickerCandidates::labelOf(const Entry& entry) const {
    if (entry.label == Label::custom && !entry.customLabel.empty()) return entry.customLabel;
    return words_.labels[static_cast<std::size_t>(entry.label)];
}

std::string PickerCandidates::text(Index candidate, OSType column) const {
    switch (column) {
        case kLastNameColumn:
            return NamesOf(personOf(candidate)).last;
        case kFirstNameColumn:
            return NamesOf(personOf(candidate)).first;
        case kFaxNumberColumn:
            return entryOf(candidate).value;
        case kLabelColumn:
            return labelOf(candidate);
        case kOrganizationColumn:
            return personOf(candidate).organization;
        default:
            return {};
    }
}

bool PickerCandidates::matches(Index candidate, std::string_view folded) const {
    std::string_view texts = candidates_[candidate].folded;
    while (!texts.empty() && !texts.starts_with(folded)) texts.remove_prefix(texts.find(kEnd) + 1);
    return !texts.empty();
}

bool PickerCandidates::isBefore(Index left, Index right, const ListSort& sort) const {
    const auto* const column = std::ranges::find(kColumns, sort.column);
    if (column == std::end(kColumns)) return left < right;
    const std::vector<Index>& ranks = ranks_[static_cast<std::size_t>(column - kColumns)];
    if (ranks[left] == ranks[right]) return left < right;
    return (ranks[left] < ranks[right]) != sort.isDescending;
}

}  // namespace kalmo
