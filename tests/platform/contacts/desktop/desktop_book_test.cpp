#include <thread>

#include "platform/contacts/conformance.h"
#include "platform/contacts/desktop/private_desktop.h"

namespace {

using namespace kalmo::test;
using contacts::Code;
using contacts::Label;
using contacts::Source;

std::shared_ptr<contacts::AddressBook> OpenBook(Source source = Source::desktop) {
    const auto opened = contacts::OpenAddressBook({source, {}}, {});
    EXPECT_EQ(opened.source, Source::desktop) << opened.answer.text;
    return opened.book;
}

contacts::Person Company() {
    return {.organization = "Lager & Söhne; KG",
            .isCompany = true,
            .phones = {{Label::workFax, "+49 30 1"}, {Label::workFax, "+49 30 2"}}};
}

/// By another program of the desktop.
void PutCard(const std::string& card) {
    const auto file = MakeFolder("other") / "card";
    WriteFile(file, card);
    EXPECT_EQ(RunProgram({.program = BuiltProgram("card_writer"), .input = file}).exitCode, 0);
}

struct DesktopAddressBook : testing::Test {
    const PrivateDesktop desktop{Services::installed};
};

TEST_F(DesktopAddressBook, DoesWhatEveryAddressBookDoes) {
    InOwnProcess([] {
        ExpectConformance(
            *OpenBook(), {.put = [](const std::string&, const std::string& card) { PutCard(card); },
                          .text = [](const std::string&) { return PrivateDesktop::exported(); }});
    });
}

TEST_F(DesktopAddressBook, IsSharedWithTheDesktopsPrograms) {
    InOwnProcess([] {
        const auto book = OpenBook();
        contacts::Changes changes{.persons = {Company()}};
        ASSERT_TRUE(book->save(changes, {}));
        const std::string uid = changes.persons[0].uid;
        EXPECT_TRUE(OpenBook(Source::automatic));  // its service runs by now
        changes = {.groups = {{.name = "Suppliers", .members = {uid}}}};
        ASSERT_TRUE(book->save(changes, {}));
        std::string cards = PrivateDesktop::exported();
        std::erase(cards, '"');
        for (const char* part : {"+49 30 1", "+49 30 2", "Lager & Söhne\\; KG", "FN:Suppliers",
                                 "X-EVOLUTION-LIST:TRUE"}) {
            EXPECT_TRUE(Contains(cards, part)) << part << " is not in\n" << cards;
        }
        EXPECT_TRUE(Contains(cards, "X-EVOLUTION-DEST-CONTACT-UID=" + uid)) << cards;
    });
}

TEST_F(DesktopAddressBook, EditsOddCardsOfOthersUnderTheirUidsAndLogsNothingOfThem) {
    InOwnProcess([] {
        const std::string uid = "urn:uuid:zoe";
        PutCard("BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + uid +
                "\r\nFN:Zoe\r\nN:Z;;;;\r\nNOTE;ENCODING=Privat:odd\r\nEND:VCARD\r\n");
        const std::string log = MakeFolder("log") / "errors";
        ASSERT_TRUE(std::freopen(log.c_str(), "w", stderr));
        contacts::Contacts all;
        ASSERT_TRUE(OpenBook()->load(all, {}));
        contacts::Changes changes{.persons = all.persons};
        ASSERT_EQ(changes.persons.size(), 1U);
        ASSERT_TRUE(OpenBook()->person(uid, changes.persons[0], {}));
        changes.persons[0].mailbox = "1";
        EXPECT_TRUE(OpenBook()->save(changes, {}));
        EXPECT_EQ(changes.persons[0].uid, uid);
        for (const std::string& part : {uid, std::string("odd")})
            EXPECT_TRUE(Contains(PrivateDesktop::exported(), part)) << part;
        std::fflush(stderr);
        EXPECT_FALSE(Contains(ReadFile(log), "Privat"));
    });
}

TEST_F(DesktopAddressBook, IsTheOneThatTheUserPrefers) {
    const std::filesystem::path config = getenv("XDG_CONFIG_HOME");
    std::filesystem::create_directories(config / "evolution/sources");
    std::filesystem::create_directories(config / "glib-2.0/settings");
    WriteFile(config / "evolution/sources/second.source",
              "[Data Source]\nDisplayName=Second\nEnabled=true\nParent=local-stub\n"
              "[Address Book]\nBackendName=local\n");
    WriteFile(config / "glib-2.0/settings/keyfile",
              "[org/gnome/evolution]\ndefault-address-book='second'\n");
    InOwnProcess([] {
        contacts::Changes changes{.persons = {Company()}};
        EXPECT_TRUE(OpenBook()->save(changes, {}));
    });
    const std::filesystem::path data = getenv("XDG_DATA_HOME");
    EXPECT_TRUE(Contains(ReadFile(data / "evolution/addressbook/second/contacts.db"), "+49 30 1"));
}

TEST_F(DesktopAddressBook, OutlivesItsServiceAndItsSession) {
    InOwnProcess([this] {
        const auto book = OpenBook();
        contacts::Changes changes{.persons = {Company()}};
        ASSERT_TRUE(book->save(changes, {}));
        contacts::Contacts all;
        desktop.killAddressBookService();
        EXPECT_TRUE(book->load(all, {}));
        ASSERT_EQ(all.persons.size(), 1U);
        EXPECT_EQ(all.persons[0].revision, changes.persons[0].revision);
        desktop.killAddressBookService();
        changes.persons[0].mailbox = "7";
        EXPECT_TRUE(book->save(changes, {}));
        desktop.killAddressBookService();
        changes.persons.push_back(Company());
        EXPECT_TRUE(book->save(changes, {}));
        desktop.endBus();
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        EXPECT_EQ(book->load(all, {}).code, Code::unavailable);
    });
}

}  // namespace
