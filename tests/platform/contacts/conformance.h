// What every address book does, whatever it is kept in.
#pragma once

#include "contacts/address_book.h"
#include "support/test.h"

namespace kalmo::test {

/// The book's cards behind its back.
struct CardAccess {
    std::function<void(const std::string& uid, const std::string& card)> put;
    std::function<std::string(const std::string& uid)> text;
};

inline const contacts::Person* PersonOfUid(const contacts::Contacts& contacts,
                                           const std::string& uid) {
    const auto found = std::ranges::find(contacts.persons, uid, &contacts::Person::uid);
    return found == contacts.persons.end() ? nullptr : &*found;
}

inline contacts::Person FullPerson() {
    using contacts::Label;
    contacts::Person person;
    person.first = "Ada; \\the, first";
    person.last = "Löw\nlace";
    person.full = "Countess Ada";
    person.organization = "Engines, \"Ltd\"";
    person.mailbox = "1,2;3\n^4";
    person.phones = {{Label::workFax, "+49 30 1", ""},
                     {Label::workFax, "+49 30 2", ""},
                     {Label::homeFax, "3", ""},
                     {Label::otherFax, "4", ""},
                     {Label::custom, "5", "Lager: Tor"},
                     {Label::mobile, "6", ""},
                     {Label::main, "7", ""},
                     {Label::pager, "8", ""},
                     {Label::other, "9", ""},
                     {Label::home, "10", ""}};
    person.emails = {{Label::work, "ada@example.com", ""}, {Label::home, "a@example.org", ""}};
    person.groups = {"Friends", "Board, old"};
    return person;
}

/// `book` is empty.
inline void ExpectConformance(contacts::AddressBook& book, const CardAccess& access) {
    using namespace contacts;
    const std::stop_token stop;
    Person read;
    EXPECT_EQ(book.me(read, stop).code, Code::notFound);

    Changes changes{{FullPerson(), FullPerson()}, {}};
    changes.persons[1].isCompany = true;
    ASSERT_TRUE(book.save(changes, stop)) << "a new record";
    Contacts all;
    ASSERT_TRUE(book.load(all, stop));
    for (Person& saved : changes.persons) {
        ASSERT_TRUE(PersonOfUid(all, saved.uid));
        ASSERT_TRUE(book.person(saved.uid, read, stop));
        EXPECT_EQ(read, *PersonOfUid(all, saved.uid));
        saved.revision = read.revision;
        EXPECT_EQ(read, saved);
    }

    const std::string uid = "foreign-1";
    access.put(uid,
               "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:foreign-1\r\nFN:Old\r\nN:Old;;;;\r\n"
               "X-UNKNOWN;P=1:keep\r\nitem7.X-MINE:too\r\nTEL;TYPE=FAX,WORK:1\r\n"
               "END:VCARD\r\n");
    ASSERT_TRUE(book.person(uid, read, stop));
    changes = {{read}, {}};
    Changes late;
    for (const char* value : {"2", "3"}) {
        late = changes;
        changes.persons[0].phones[0].value = value;
        ASSERT_TRUE(book.save(changes, stop)) << "an edit";
    }
    for (const char* kept : {"X-UNKNOWN;P=1:keep", "item7.X-MINE:too"}) {
        EXPECT_TRUE(Contains(access.text(uid), kept)) << access.text(uid);
    }
    ASSERT_TRUE(book.person(uid, read, stop));
    EXPECT_EQ(read.phones, (std::vector<Entry>{{Label::workFax, "3", ""}}));
    late.persons[0].last = "Lost";
    EXPECT_EQ(book.save(late, stop).code, Code::conflict) << "of an edit in the same second";
    late.persons[0].revision.clear();
    EXPECT_TRUE(book.save(late, stop)) << "without a revision it is replaced";

    changes = {{}, {{"", "", "Sales, all", {uid, all.persons[0].uid, "gone"}}}};
    ASSERT_TRUE(book.save(changes, stop)) << "a group";
    Group group = changes.groups[0];
    group.members = {all.persons[0].uid, "gone", all.persons[1].uid};
    changes.groups[0] = group;
    ASSERT_TRUE(book.save(changes, stop)) << "its members";
    ASSERT_TRUE(book.load(all, stop));
    ASSERT_EQ(all.groups.size(), 1u);
    EXPECT_EQ(all.groups[0].members, group.members);
    EXPECT_EQ(all.groups[0].name, "Sales, all");
    EXPECT_EQ(book.person(group.uid, read, stop).code, Code::notFound) << "a group is no person";

    EXPECT_EQ(book.setMe("nobody", stop).code, Code::notFound);
    ASSERT_TRUE(book.setMe(uid, stop));
    ASSERT_TRUE(book.me(read, stop));
    EXPECT_EQ(read.last, "Lost");
    ASSERT_TRUE(book.load(all, stop));
    EXPECT_EQ(all.me, uid);
    ASSERT_TRUE(book.setMe("", stop));
    EXPECT_EQ(book.me(read, stop).code, Code::notFound);

    std::stop_source stopped;
    stopped.request_stop();
    EXPECT_EQ(book.load(all, stopped.get_token()).code, Code::cancelled);
}

}  // namespace kalmo::test
