// Persons and groups of an address book, as plain values: any thread may hold them.
//
// All texts are UTF-8; an empty one is not set.
#pragma once

#include <cstddef>
#include <string>
#include <tuple>
#include <vector>

namespace contacts {

/// What a telephone or e-mail entry is for.
enum class Label { workFax, homeFax, otherFax, work, home, mobile, main, pager, other, custom };
[[nodiscard]] constexpr bool IsFax(Label label) { return label <= Label::otherFax; }

/// The rank of an entry that the card does not prefer to others.
inline constexpr int kNoRank = 101;

struct Entry {
    Label label = Label::other;
    std::string value;
    std::string customLabel;  // the user's own word, of Label::custom
    int rank = kNoRank;       // 1: the first choice; as it was read, no edit changes it
    bool operator==(const Entry& other) const {
        return std::tie(label, value, customLabel) ==
               std::tie(other.label, other.value, other.customLabel);
    }
};

struct Person {
    std::string uid;       // empty: not in an address book yet
    std::string revision;  // as it was read; empty: none known
    std::string first, last, full, organization, mailbox;
    bool isCompany = false;  // goes by its organization
    std::vector<Entry> phones, emails;
    std::vector<std::string> groups;  // names on the person's own card, beside the group records
    bool operator==(const Person&) const = default;
};

struct Group {
    std::string uid, revision;
    std::string name;
    std::vector<std::string> members;  // uids
    bool operator==(const Group&) const = default;
};

/// A whole address book as it was read once.
struct Contacts {
    std::vector<Person> persons;
    std::vector<Group> groups;
    std::string me;              // uid of the user's own card; empty without one
    std::size_t passedOver = 0;  // records that were damaged or foreign
};

}  // namespace contacts
