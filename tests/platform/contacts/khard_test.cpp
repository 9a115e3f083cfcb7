// The folder shared with khard, a program that many use on such folders.
#include "platform/contacts/conformance.h"
#include "support/programs.h"

namespace kalmo::test {
namespace {

using namespace contacts;

/// khard with a configuration of its own on a fresh folder.
class Khard {
public:
    Khard() : home_(MakeFolder("khard")), cards(home_ / "cards") {
        std::filesystem::create_directory(cards);
        WriteFile(home_ / "khard.conf",
                  "[addressbooks]\n[[shared]]\npath = " + cards.string() +
                      "\n[general]\neditor = /bin/true\nmerge_editor = /bin/true\n"
                      "[vcard]\nprivate_objects = Com-Kalmo-Mailbox,\n");
        WriteFile(home_ / "yes", "y\n");
    }
    std::string operator()(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"-c", (home_ / "khard.conf").string()});
        const ProgramEnd end = RunProgram(
            {.program = "/usr/bin/khard", .arguments = arguments, .input = home_ / "yes"});
        EXPECT_EQ(end.exitCode, 0) << end.errors << end.output;
        return end.output;
    }
    /// A file of what is typed into its editor.
    [[nodiscard]] std::string typed(const std::string& text) const {
        WriteFile(home_ / "typed.yaml", text);
        return home_ / "typed.yaml";
    }

private:
    std::filesystem::path home_;

public:
    std::filesystem::path cards;
};

TEST(Khard, ReadsAndEditsWhatWeWrote) {
    const Khard khard;
    const auto book = OpenFolder(khard.cards);
    Person ada = FullPerson();
    ada.first = "Ada", ada.last = ada.full = "Lovelace", ada.mailbox = "12";
    ada.phones[4].customLabel = "Lager";
    Changes changes{{ada, {.organization = "Acme", .isCompany = true}}, {}};
    ASSERT_TRUE(book->save(changes, {}));
    ada = changes.persons[0];
    Changes group{{}, {{"", "", "Sales", {ada.uid, changes.persons[1].uid}}}};
    ASSERT_TRUE(book->save(group, {}));

    const std::string phones = khard({"phone", "--parsable"});
    EXPECT_TRUE(Contains(phones, "+49 30 2\tAda Lovelace\tWORK, FAX")) << phones;
    std::string shown = khard({"show", "--format", "yaml", "Lovelace"});
    EXPECT_TRUE(Contains(shown, "Com-Kalmo-Mailbox: '12'")) << shown;
    shown.replace(shown.find("+49 30 2"), 8, "+49 30 7");
    khard({"edit", "-i", khard.typed(shown), "Lovelace"});

    Contacts contacts;
    ASSERT_TRUE(book->load(contacts, {}));
    ASSERT_EQ(contacts.persons.size(), 2u);
    const Person* const edited = PersonOfUid(contacts, ada.uid);
    ASSERT_TRUE(edited);
    ada.phones[1].value = "+49 30 7";
    for (const Entry& phone : ada.phones) {
        EXPECT_EQ(std::ranges::count(edited->phones, phone), 1)
            << phone.value << ReadFile(khard.cards / (ada.uid + ".vcf"));
    }
    EXPECT_EQ(edited->mailbox, "12");
    EXPECT_EQ(book->save(changes, {}).code, Code::conflict) << "khard wrote in between";
    EXPECT_TRUE(PersonOfUid(contacts, changes.persons[1].uid)->isCompany);
    EXPECT_EQ(contacts.groups.at(0).members, group.groups[0].members);
}

}  // namespace
}  // namespace kalmo::test
