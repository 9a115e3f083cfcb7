// The address book as the picker shows it: its groups, and the telephone entries of their members.
//
// Made once, beside the UI thread, with all that search and order need; then it is only read.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "contacts/person.h"
#include "toolbox/list_view.h"

namespace kalmo {

/// Words of the user's language that the thread cannot look up itself.
struct PickerWords {
    std::array<std::string, static_cast<std::size_t>(contacts::Label::custom) + 1> labels;
    std::string noGroup, namelessGroup;
};

/// The columns of the candidates' list.
inline constexpr OSType kLastNameColumn = 'last', kFirstNameColumn = 'frst',
                        kFaxNumberColumn = 'faxn', kLabelColumn = 'labl',
                        kOrganizationColumn = 'orga';

class PickerCandidates final {
public:
    using Index = std::uint32_t;

    /// One telephone entry of a person.
    struct Candidate {
        Index person = 0, entry = 0;
        /// The texts that a search looks into, each with a 0 behind it.
        std::string folded;
    };
    struct Group {
        std::string name;
        std::vector<Index> candidates;  // ascending: by name, a person's fax numbers first
    };

    PickerCandidates(contacts::Contacts contacts, PickerWords words);

    /// By name; those of the same name are one. Persons without a group are in a last one.
    [[nodiscard]] const std::vector<Group>& groups() const { return groups_; }
    /// Of all groups, each once, by name.
    [[nodiscard]] Index count() const { return static_cast<Index>(candidates_.size()); }
    [[nodiscard]] const contacts::Person& personOf(Index candidate) const;
    [[nodiscard]] const contacts::Entry& entryOf(Index candidate) const;
    [[nodiscard]] const std::string& labelOf(Index candidate) const;
    /// Empty for a column that is none.
    [[nodiscard]] std::string text(Index candidate, OSType column) const;

    /// Whether last name, first name, fax number or label begins with the text, which is folded.
    [[nodiscard]] bool matches(Index candidate, std::string_view folded) const;
    /// Whether `left` stands before `right` in the order of the column; equals stand by name.
    [[nodiscard]] bool isBefore(Index left, Index right, const ListSort& sort) const;

private:
    static constexpr std::size_t kColumnCount = 5;
    /// Persons by the name of a group.
    using Members = std::map<std::string, std::set<Index>>;

    void listCandidates();
    void listGroups();
    [[nodiscard]] Members membersByName() const;
    void addPerson(Index person, Group& group) const;
    [[nodiscard]] const std::string& labelOf(const contacts::Entry& entry) const;

    contacts::Contacts contacts_;
    PickerWords words_;
    std::vector<Candidate> candidates_;
    std::vector<Index> firstOfPerson_;  // first candidate of each person, and one behind the last
    std::vector<Group> groups_;
    std::array<std::vector<Index>, kColumnCount> ranks_;  // place of each candidate in each column
};

}  // namespace kalmo
