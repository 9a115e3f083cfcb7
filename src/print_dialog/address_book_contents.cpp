#include "print_dialog/address_book_contents.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "contacts/collation.h"

namespace kalmo {
namespace {

std::string FirstValue(const std::vector<contacts::Entry>& entries) {
    return entries.empty() ? std::string() : entries.front().value;
}

std::string OwnName(const contacts::Person& person) {
    if (person.isCompany) return {};
    if (!person.full.empty()) return person.full;
    const bool both = !person.first.empty() && !person.last.empty();
    return person.first + (both ? " " : "") + person.last;
}

std::string ShownName(const contacts::Person& person) {
    const std::string name = OwnName(person);
    if (!name.empty() && !person.organization.empty() && name != person.organization) {
        return name + " – " + person.organization;
    }
    for (const std::string& text :
         {name, person.organization, FirstValue(person.emails), FirstValue(person.phones)}) {
        if (!text.empty()) return text;
    }
    return {};
}

std::vector<ListedPerson> Listed(const std::vector<contacts::Person>& persons,
                                 const std::stop_token& stop) {
    std::vector<std::pair<std::string, ListedPerson>> sorted;
    for (const contacts::Person& person : persons) {
        if (stop.stop_requested()) return {};
        const std::string name = ShownName(person);
        if (name.empty()) continue;
        sorted.push_back({contacts::SortKey(name), {person.uid, name, contacts::Folded(name)}});
    }
    std::ranges::stable_sort(sorted, {}, &std::pair<std::string, ListedPerson>::first);
    std::vector<ListedPerson> people;
    for (auto& [key, person] : sorted) people.push_back(std::move(person));
    return people;
}

void Read(AddressBookContents& contents, const contacts::Settings& settings,
          const std::stop_token& stop) {
    contents.opened = contacts::OpenAddressBook(settings, stop);
    contents.answer = contents.opened.answer;
    if (!contents.opened.book) return;
    contacts::Contacts read;
    contents.answer = contents.opened.book->load(read, stop);
    contents.persons = read.persons.size();
    contents.groups = read.groups.size();
    contents.passedOver = read.passedOver;
    contents.people = Listed(read.persons, stop);
    contents.me = read.me;
}

}  // namespace

AddressBookContents ReadAddressBook(const contacts::Settings& settings,
                                    const std::stop_token& stop) {
    AddressBookContents contents;
    try {
        Read(contents, settings, stop);
    } catch (const std::exception& error) {
        contents.answer = {contacts::Code::failed, error.what()};
    }
    return contents;
}

}  // namespace kalmo
