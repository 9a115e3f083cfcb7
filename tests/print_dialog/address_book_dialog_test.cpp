// The settings of the address book, on folders of the test's own.
#include "print_dialog/address_book_dialog.h"

#include "fax/card_folder.h"
#include "print_dialog/remembered_settings.h"
#include "support/qt_test.h"
#include "support/window_walk.h"

namespace kalmo::test {
namespace {

namespace fs = std::filesystem;

struct AddressBookDialogTest : testing::Test {
    AddressBookDialogTest() {
        setenv("XDG_CONFIG_HOME", MakeFolder("config").c_str(), 1);
        for (const auto& [uid, name, more] :
             {std::tuple{"a1", "Zoë Älund", "ORG:Acme\n"}, {"a2", "Ben Ode", ""}})
            cards_.add(uid, std::string("FN:") + name + "\nN:;;;;\n" + more + "TEL;TYPE=fax:12\n");
        cards_.addGroup("Team", {"a1"});
        WriteFile(cards_.folder / "torn.vcf", "BEGIN:VCARD\r\nFN:To");
    }
    void open() {
        dialog_ = std::make_unique<AddressBookDialog>();
        dialog_->show();
    }
    template <typename Widget>
    Widget* find(const char* text) const {
        for (auto* widget : dialog_->findChildren<Widget*>())
            if (widget->text().contains(text)) return widget;
        return nullptr;
    }
    /// From the list of people, once `searched` is typed.
    void choosePerson(const char* searched, const QStringList& found) {
        auto* list = dialog_->findChild<QListView*>();
        dialog_->findChild<MyCardChoice*>()->findChild<QLineEdit*>()->setText(searched);
        ASSERT_EQ(RowsOf(*list->model()), found);
        const QModelIndex last = list->model()->index(list->model()->rowCount() - 1, 0);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(last).center());
    }

    const CardFolder cards_{MakeFolder("contacts")};
    const contacts::Settings own_ = contacts::CurrentSettings();
    std::unique_ptr<AddressBookDialog> dialog_;
};

TEST_F(AddressBookDialogTest, TheFolderIsShownAndTheCardInItMarked) {
    contacts::SetSettings({contacts::Source::folder, MakeFolder("empty")});
    open();
    ASSERT_TRUE(Wait([this] { return find<QLabel>("Contacts: 0, groups: 0"); }));
    auto* const field = dialog_->findChild<QLineEdit*>();
    field->setText("contacts");
    EXPECT_FALSE(find<QPushButton>("OK")->isEnabled()) << "no whole path";
    EXPECT_TRUE(field->accessibleDescription().contains("whole path"));
    field->setText(QString::fromStdString(cards_.folder));
    EXPECT_TRUE(find<QLabel>("Loading"));
    ASSERT_TRUE(
        Wait([this] { return find<QLabel>("Contacts: 2, groups: 1, could not be read: 1"); }));
    choosePerson("oDE", {"None", "Ben Ode"});
    choosePerson("älu", {"None", "Zoë Älund – Acme"});
    find<QPushButton>("OK")->click();
    ASSERT_TRUE(Wait([this] { return !dialog_->isVisible(); }));
    EXPECT_EQ(cards_.read().me, "a1");
    EXPECT_EQ(contacts::CurrentSettings(), own_);
    EXPECT_EQ(RememberedAddressBook(), own_);
    open();
    ASSERT_TRUE(Wait([this] { return find<QLabel>("Contacts: 2"); }));
    EXPECT_EQ(dialog_->findChild<MyCardChoice*>()->chosen(), "a1");
    choosePerson("nobody", {"None"});
    find<QPushButton>("OK")->click();
    ASSERT_TRUE(Wait([this] { return !dialog_->isVisible(); }));
    EXPECT_EQ(cards_.read().me, "");
}

TEST_F(AddressBookDialogTest, ACardThatCannotBeMarkedIsSaidAndNothingKept) {
    const auto before = RememberedAddressBook();
    open();
    ASSERT_TRUE(Wait([this] { return find<QLabel>("Contacts: 2"); }));
    choosePerson("ben", {"None", "Ben Ode"});
    fs::remove(cards_.folder / "a2.vcf");
    find<QPushButton>("OK")->setFocus();
    find<QPushButton>("OK")->click();
    ASSERT_TRUE(Wait([this] { return find<QLabel>("Your card cannot be marked"); }));
    EXPECT_TRUE(find<QLabel>("Your card cannot be marked")->isVisible());
    EXPECT_EQ(dialog_->focusWidget(), dialog_->findChild<QListView*>());
    EXPECT_TRUE(dialog_->focusWidget()->accessibleDescription().contains("cannot be marked"));
    EXPECT_TRUE(dialog_->isVisible() && find<QPushButton>("OK")->isEnabled());
    EXPECT_EQ(RememberedAddressBook(), before);
}

TEST_F(AddressBookDialogTest, EveryControlHasANameAndALetter) {
    // Of buttons that exclude each other, Tab reaches one as soon as one has the focus.
    AddressBookDialog untouched;
    EXPECT_EQ(WindowFaults(untouched, Identities::notNeeded), std::vector<std::string>());
    EXPECT_EQ(RepeatedMnemonics(MnemonicTexts(untouched)), std::vector<std::string>());
}

}  // namespace
}  // namespace kalmo::test
