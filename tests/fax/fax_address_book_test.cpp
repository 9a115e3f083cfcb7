// Recipients on their way into the address book, and who they are there.
#include "fax/fax_address_book.h"

#include "fax/card_folder.h"
#include "fax/fax_dialog_test.h"
#include "fax/recipient_saving.h"

namespace kalmo::test {
namespace {

using contacts::Label;

struct FaxAddressBook : FaxDialogTest {
    const CardFolder cards;
};

TEST_F(FaxAddressBook, ARecipientBecomesAPersonWithoutItsLastName) {
    FaxRecipient ann(
        Dictionary("FirstName=Ann LastName=Lee FaxNumber=\"7\" PhoneNumber=\"8\" "
                   "EmailAddress=a@b Organization=Co Mailbox=\"12\""));
    EXPECT_EQ(ann.abRecord(), nullptr);
    EXPECT_TRUE(ann.commitToAddressBook());
    const auto person = ann.abRecord();
    ASSERT_NE(person, nullptr);
    EXPECT_EQ(std::tie(person->first, person->last, person->organization, person->mailbox),
              std::tuple("Ann", "", "Co", "12"));
    const std::vector<contacts::Entry> phones{{Label::workFax, "7"}, {Label::work, "8"}},
        emails{{Label::work, "a@b"}};
    EXPECT_EQ(person->phones, phones);
    EXPECT_EQ(person->emails, emails);
    EXPECT_EQ(cards.read().persons.size(), 1u);
    EXPECT_FALSE(Contains(ReadFile(cards.folder / (person->uid + ".vcf")), "Lee"));
}

TEST_F(FaxAddressBook, OfSeveralEntriesTheOneThatTheCardPrefersCounts) {
    cards.add("a",
              "FN:A\nTEL;TYPE=FAX,PREF:1\nTEL;TYPE=PAGER,PREF:2\nTEL:3\nTEL;TYPE=HOME,PREF:4\n"
              "EMAIL:a@b\nEMAIL;TYPE=INTERNET;TYPE=PREF:c@d\n");
    cards.add("b", "FN:B\nTEL;PREF=x:5\nTEL;PREF=2:6\nTEL;PREF=1:7\n");
    const auto persons = cards.read().persons;
    EXPECT_EQ(PrimaryTelephone(persons.at(0))->value, "4");
    EXPECT_EQ(PrimaryEmail(persons.at(0))->value, "c@d");
    EXPECT_EQ(PrimaryTelephone(persons.at(1))->value, "7");
    EXPECT_EQ(PrimaryEmail(persons.at(1)), nullptr);
}

TEST_F(FaxAddressBook, TroubleIsOneLineOfTheLog) {
    testing::internal::CaptureStderr();
    EXPECT_TRUE(CopyAddressBookTrouble(bundle, {contacts::Code::failed, "a\n\x1b[2Jb"}));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Address book: a  [2Jb\n");
}

TEST_F(FaxAddressBook, AGroupTakesInItsRecipientsAndAddsOnlyThoseWhoAreNew) {
    cards.add("bea", "FN:Bea\nN:;Bea;;;\nTEL;TYPE=FAX:5\n");
    append("FirstName=Bea FaxNumber=\"5\" UID=bea");
    FaxRecipient* const ann = append("FirstName=Ann FaxNumber=\"7\"");
    list.append(ann);
    append("FirstName=Bea FaxNumber=\"6\" UID=bea");
    for (const char* name : {"First", "Second"}) {
        EXPECT_TRUE(list.saveAsABGroupWithName(String(name)));
        const auto stored = cards.read();
        EXPECT_EQ(stored.persons.size(), 2u) << "the second time everybody is there";
        const auto group = std::ranges::find(stored.groups, name, &contacts::Group::name);
        ASSERT_NE(group, stored.groups.end());
        EXPECT_EQ(group->members, (std::vector<std::string>{"bea", CFStringToUTF8(ann->uid())}));
    }
}

TEST_F(FaxAddressBook, AnotherTryGoesOnWithTheGroupThatIsThere) {
    cards.addGroup("Friends", {"bea"});
    append("FirstName=Ann FaxNumber=\"7\"");
    contacts::Group group{.uid = "group-Friends", .revision = "of old", .name = "Friends"};
    EXPECT_TRUE(SaveAsGroup(list, group)) << "another program has changed it";
    EXPECT_EQ(cards.read().groups.size(), 1u);
    EXPECT_EQ(group.members.size(), 2u) << "and its members stay";

    std::filesystem::remove(cards.folder / "group-Friends.vcf");
    FaxRecipient* const cid = append("FirstName=Cid FaxNumber=\"8\"");
    EXPECT_FALSE(SaveAsGroup(list, group));
    EXPECT_NE(cid->uid(), nullptr) << "was added before the failure";
}

}  // namespace
}  // namespace kalmo::test
