// The dialogs between recipients and the address book, through their controls.
#include "fax/address_book_picker.h"

#include "fax/card_folder.h"
#include "fax/fax_dialog_test.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kGroups = 200, kSearch = 201, kCandidates = 202, kNote = 203, kBusy = 204,
                 kCount = 205;
constexpr SInt32 kName = 200;
constexpr int kFirst = 1, kNumber = 2;

std::string Phone(const char* types, const std::string& number) {
    return std::string("TEL;TYPE=") + types + ":" + number + "\n";
}

struct AddressBookDialogs : FaxDialogTest {
    /// Once the address book is read.
    SInt32 pick(const ModalDriver::Answer& answer) {
        driver.expect([answer](QWidget& window) {
            ASSERT_TRUE(Wait([&] { return !Control(window, kBusy).isVisible(); }));
            answer(window);
        });
        return RunModalFaxABPicker(&model);
    }
    static QStringList Column(QWidget& window, SInt32 view, int column = 0) {
        return RowsOf(*Control<QTreeView>(window, view).model(), column);
    }
    static void Select(QWidget& window, SInt32 view, std::initializer_list<int> rows) {
        auto& tree = Control<QTreeView>(window, view);
        tree.clearSelection();
        for (const int row : rows)
            tree.selectionModel()->select(tree.model()->index(row, 0),
                                          QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QCoreApplication::processEvents();
    }
    void addMany(const std::string& name, int count) {
        std::vector<std::string> members;
        for (int i = 0; i < count; ++i) {
            members.push_back(name + std::to_string(i));
            cards.add(members.back(), "N:Lee;" + members.back() + ";;;\nTEL:1\n");
        }
        cards.addGroup(name, members);
    }
    const CardFolder cards;
};

TEST_F(AddressBookDialogs, GroupsOfferTheEntriesOfTheirMembers) {
    cards.add("mil", "N:Miller;Ann;;;\nFN:Ann Miller\n" + Phone("CELL", "9") +
                         Phone("\"WORK,FAX\"", "7") + "X-COM-KALMO-MAILBOX:12\n");
    cards.add("ham",
              "N:Hamilton;Bea;;;\nFN:Bea Hamilton\n" + Phone("FAX", "5") + "CATEGORIES:bees\n");
    cards.add("co", "FN:Miles Ltd\nN:Contact;Person;;;\nORG:Miles Ltd\nX-ABShowAs:COMPANY\n" +
                        Phone("WORK", "6"));
    cards.add("mute", "N:Mila;;;;\nFN:Mila\n");
    cards.add("alone", "N:Zoe;;;;\nFN:Zoe\n" + Phone("HOME", "4"));
    cards.addGroup("ants", {"mil", "ham", "co", "mute", "gone"});
    cards.addGroup("Bare", {});
    EXPECT_EQ(
        pick([&](QWidget& window) {
            EXPECT_EQ(Column(window, kGroups), (QStringList{"ants", "Bare", "bees", "No group"}));
            EXPECT_EQ(Column(window, kCandidates, kNumber), (QStringList{"5", "6", "7", "9"}));
            EXPECT_EQ(Column(window, kCandidates, kFirst)[1], "Miles Ltd");
            for (const auto& [sought, found] : {std::pair{"mil", QStringList{"6", "7", "9"}},
                                                {"WORK F", {"7"}},
                                                {"9", {"9"}},
                                                {"milton", {}},
                                                {"", {"5", "6", "7", "9"}}}) {
                Type(window, kSearch, sought);
                EXPECT_EQ(Column(window, kCandidates, kNumber), found) << sought;
                const int meant = *sought ? !found.empty() : 4;
                EXPECT_EQ(Control<QLabel>(window, kCount).text(),
                          QString("Recipients to add: %1").arg(meant));
            }
            Select(window, kCandidates, {2});
            EXPECT_EQ(Control<QLabel>(window, kCount).text(), "Recipients to add: 1");
            Press(window, kOK);
        }),
        1);
    ASSERT_EQ(list.count(), 1);
    const auto expected = Dictionary(
        "FirstName=Ann LastName=Miller FaxNumber=\"7\" PhoneNumber=\"9\" Mailbox=\"12\" UID=mil");
    CFDictionarySetValue(expected, CFSTR("FaxNumberLabel"), CFSTR("work fax"));
    EXPECT_TRUE(CFEqual(Owned<CFTypeRef>::Adopt(list.recipientAtIndex(0)->toTicket()), expected));
}

TEST_F(AddressBookDialogs, AllOfSeveralGroupsAreAddedUpToAThousandInTheList) {
    addMany("a", 10);
    addMany("b", 1);
    while (list.count() < 990) append("FirstName=x");
    EXPECT_EQ(pick([&](QWidget& window) {
                  Select(window, kCandidates, {0});
                  Select(window, kGroups, {0, 1});
                  EXPECT_TRUE(Column(window, kCandidates).empty());
                  Press(window, kOK);
                  EXPECT_EQ(notices, (std::vector<std::string>{
                                         "You chose 11 recipients. A fax takes up to 1000, so "
                                         "there is room for 10 more. Choose fewer, then add "
                                         "them."}));
                  EXPECT_EQ(list.count(), 990);
                  Select(window, kGroups, {0});
                  Press(window, kOK);
              }),
              1);
    EXPECT_EQ(list.count(), 1000);
}

TEST_F(AddressBookDialogs, WhatIsWrongWithTheAddressBookIsSaid) {
    const auto note = [this] {
        std::string said;
        pick([&](QWidget& window) {
            said = Control<QLabel>(window, kNote).text().toStdString();
            Press(window, kCancel);
        });
        return said;
    };
    EXPECT_EQ(note(), "The address book is empty.");
    cards.add("mute", "N:Mila;;;;\nFN:Mila\n");
    WriteFile(cards.folder / "broken.vcf", "no card");
    EXPECT_EQ(note(),
              "Nobody in the address book has a telephone number. One contact could not be "
              "read and is missing here.");
    contacts::SetSettings({.source = contacts::Source::desktop, .folder = {}});
    EXPECT_TRUE(Contains(note(), "There is no address book."));
}

TEST_F(AddressBookDialogs, AGroupNeedsANameAndAPlace) {
    append("FirstName=x");
    driver.expect([&](QWidget& window) {
        Type(window, kName, " ");
        Press(window, kOK);
        EXPECT_EQ(notices, std::vector<std::string>{"Enter a name for the group."});
        EXPECT_TRUE(HasFocus(window, kName));
        contacts::SetSettings({.source = contacts::Source::desktop, .folder = {}});
        Type(window, kName, "Friends");
        Press(window, kOK);
        EXPECT_TRUE(Wait([&] { return notices.size() == 2; }));
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(list.recipientAtIndex(0)->uid(), nullptr);
        contacts::SetSettings({.source = contacts::Source::folder, .folder = cards.folder});
        Press(window, kOK);
    });
    EXPECT_EQ(RunModalSaveGroupDialog(bundle, &list), kModalOK);
    const auto stored = cards.read();
    ASSERT_EQ(stored.groups.size(), 1u);
    EXPECT_EQ(std::pair(stored.groups[0].name, stored.groups[0].members.size()),
              std::pair(std::string("Friends"), std::size_t{1}));
}

}  // namespace
}  // namespace kalmo::test
