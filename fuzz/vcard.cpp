// Untrusted cards: what is read of one changes nothing when it is written, and an edit says what it
// should.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "contacts/card_mapping.h"

using namespace contacts;

namespace {

void Require(bool held) {
    if (!held) std::abort();
}

template <typename T>
T Read(const std::string& text) {
    const auto record = ReadCard(text);
    Require(record && std::holds_alternative<T>(*record));
    T value = std::get<T>(*record);
    value.revision.clear();
    return value;
}

/// A user's own word loses its commas where it is written.
bool SayTheSame(const Entry& a, const Entry& b) {
    return a.value == b.value && (a.label == b.label || b.label == Label::custom);
}

void EditPerson(std::string_view text, Person person) {
    Require(ApplyPerson(text, person) == text);
    person.revision.clear();
    person.last = "L\xC3\xB6we; a, b\\\nc";
    person.organization = "Acme";
    person.mailbox = "=20^n";
    person.groups.insert(person.groups.begin(), "new, group");
    if (person.phones.size() > 1) person.phones.erase(person.phones.begin());
    if (!person.phones.empty()) person.phones.front().value = "+1;2";
    person.phones.push_back({Label::custom, "3", "mine"});
    person.emails.push_back({Label::homeFax, "a@b", ""});
    if (person.emails.size() > 2) std::swap(person.emails[0], person.emails[1]);
    person.full += "!";
    const auto edited = ApplyPerson(text, person);
    Require(edited.has_value());
    const Person read = Read<Person>(*edited);
    Require(std::ranges::equal(read.phones, person.phones, SayTheSame));
    Require(read.emails.size() == person.emails.size() && read.last == person.last);
    Require(read.organization == person.organization && read.mailbox == person.mailbox);
    Require(read.full == person.full && read.uid == person.uid);
    Require(ApplyPerson(*edited, read) == edited);
}

void EditGroup(std::string_view text, Group group) {
    Require(ApplyGroup(text, group) == text);
    group.revision.clear();
    group.name = "n, \n\xE2\x82\xAC";
    if (!group.members.empty()) group.members.erase(group.members.begin());
    if (std::ranges::find(group.members, "new") == group.members.end()) {
        group.members.emplace_back("new");
    }
    const auto edited = ApplyGroup(text, group);
    Require(edited.has_value());
    const Group read = Read<Group>(*edited);
    Require(read.name == group.name && read.members.size() == group.members.size());
    Require(ApplyGroup(*edited, read) == edited);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);
    const auto record = ReadCard(text);
    Require(!record || ReadCards(text).size() == 1);
    if (!record) return 0;
    if (const auto* const person = std::get_if<Person>(&*record)) {
        EditPerson(text, *person);
    } else {
        EditGroup(text, std::get<Group>(*record));
    }
    return 0;
}
