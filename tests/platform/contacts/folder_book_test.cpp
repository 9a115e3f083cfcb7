// The folder of cards: what every book does, and what sharing the folder takes.
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "contacts/card_mapping.h"
#include "platform/contacts/conformance.h"

namespace kalmo::test {
namespace {

using namespace contacts;
namespace fs = std::filesystem;

std::string CardOf(const std::string& uid, const std::string& more = "") {
    return "BEGIN:VCARD\nVERSION:3.0\nUID:" + uid + "\nFN:" + uid + "\n" + more + "END:VCARD\n";
}

Contacts Loaded(const fs::path& folder) {
    Contacts contacts;
    const Answer answer = OpenFolder(folder)->load(contacts, {});
    EXPECT_TRUE(answer) << answer.text;
    return contacts;
}

unsigned ModeOf(const fs::path& path) { return static_cast<unsigned>(status(path).permissions()); }

/// Runs in a process of its own, which ends with what `work` returns.
template <typename Work>
pid_t Fork(const Work& work) {
    const pid_t child = fork();
    if (child == 0) _exit(work());
    return child;
}

int EndOf(pid_t child) {
    int status = -1;
    waitpid(child, &status, 0);
    return status;
}

TEST(FolderBook, DoesWhatEveryBookDoes) {
    const fs::path folder = MakeFolder("book") / "deeper" / "contacts";
    const auto book = OpenFolder(folder);
    Contacts none;
    EXPECT_TRUE(book->load(none, {})) << "a folder that is not there yet is empty";
    const auto file = [&](const std::string& uid) { return folder / (uid + ".vcf"); };
    ExpectConformance(*book,
                      {[&](const auto& uid, const auto& card) { WriteFile(file(uid), card); },
                       [&](const auto& uid) { return ReadFile(file(uid)); }});
    EXPECT_EQ(ModeOf(folder), 0700u);
    EXPECT_EQ(ModeOf(folder.parent_path()), 0700u);
    EXPECT_EQ(ModeOf(file(Loaded(folder).groups[0].uid)), 0600u);
}

TEST(FolderBook, MeetsOnlyWholeCardsInTheFolderItself) {
    const fs::path outside = MakeFolder("outside"), folder = MakeFolder("book");
    WriteFile(outside / "x.vcf", CardOf("outside"));
    fs::create_symlink(outside / "x.vcf", folder / "link.vcf");
    fs::create_directory(folder / "sub.vcf");
    ASSERT_EQ(mkfifo((folder / "pipe.vcf").c_str(), 0600), 0);
    const std::pair<const char*, std::string> kFiles[] = {
        {"good.vcf", CardOf("good")},
        {"UPPER.VCF", CardOf("upper")},
        {".hidden.vcf", CardOf("hidden")},
        {"notes.txt", CardOf("notes")},
        {"cut.vcf", CardOf("cut").substr(20)},
        {"zz copy.vcf", CardOf("good", "TEL:1\n")},
        {"several.vcf", CardOf("a") + CardOf("b")},
        {"no uid.vcf", "BEGIN:VCARD\nVERSION:4.0\nFN:A\nEND:VCARD\n"},
        {"meeting.vcf", "BEGIN:VCALENDAR\nEND:VCALENDAR\n"}};
    for (const auto& [name, text] : kFiles) WriteFile(folder / name, text);

    const Contacts contacts = Loaded(folder);
    std::set<std::string> uids;
    for (const Person& person : contacts.persons) uids.insert(person.uid);
    EXPECT_EQ(uids, (std::set<std::string>{"good", "upper", "a", "b", "no uid"}));
    EXPECT_EQ(contacts.passedOver, 5u) << "link, pipe, cut, copy, meeting";

    const auto book = OpenFolder(folder);
    for (const auto& [uid, code] : {std::pair{"b", Code::readOnly},
                                    {"no uid", Code::done},
                                    {"outside", Code::notFound},
                                    {"../x", Code::notFound}}) {
        Changes changes{{{}}, {}};
        Answer answer = book->person(uid, changes.persons[0], {});
        changes.persons[0].last = "Changed";
        if (answer) answer = book->save(changes, {});
        EXPECT_EQ(answer.code, code) << answer.text;
    }
    EXPECT_TRUE(Contains(ReadFile(folder / "no uid.vcf"), "N:Changed;A;;;\n"));
    Changes evil{{{.uid = "../evil", .first = "E"}, {.uid = "cut", .first = "C"}}, {}};
    EXPECT_TRUE(book->save(evil, {}));
    EXPECT_FALSE(fs::exists(folder.parent_path() / "evil.vcf"));
    EXPECT_EQ(ReadFile(folder / "cut.vcf"), CardOf("cut").substr(20)) << "a damaged file stays";
}

TEST(FolderBook, SaveKeepsTheFileThatOthersKnow) {
    const fs::path folder = MakeFolder("book");
    const fs::path file = folder / "name of theirs.vcf";
    const auto book = OpenFolder(folder);
    WriteFile(file, CardOf("u"));
    fs::permissions(file, fs::perms(0640));
    Changes changes{{{}}, {}};
    ASSERT_TRUE(book->person("u", changes.persons[0], {}));
    changes.persons[0].mailbox = "1";
    ASSERT_TRUE(book->save(changes, {}));
    EXPECT_TRUE(Contains(ReadFile(file), "MAILBOX:1\n"));
    EXPECT_EQ(ModeOf(file), 0640u);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1) << "nothing is left over";

    WriteFile(file, CardOf("u", "NOTE:of another program, which knows no lock\n"));
    changes.persons[0].mailbox = "2";
    EXPECT_EQ(book->save(changes, {}).code, Code::conflict);
    EXPECT_TRUE(Contains(ReadFile(file), "NOTE:of another"));
    fs::permissions(file, fs::perms(0440));
    changes.persons[0].revision.clear();
    EXPECT_EQ(book->save(changes, {}).code, Code::readOnly);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
}

TEST(FolderBook, KilledSavesLeaveWholeCards) {
    const fs::path folder = MakeFolder("book");
    const std::string note = "NOTE:" + std::string(100'000, 'x') + "\n";
    WriteFile(folder / "u.vcf", CardOf("u", note));
    const auto saveForever = [&] {
        const auto book = OpenFolder(folder);
        for (int i = 0;; ++i) {
            Changes changes{{{}, {.first = "New"}}, {}};
            Person& person = changes.persons[0];
            if (!book->person("u", person, {})) return 1;
            person.mailbox = person.last = std::to_string(i);
            if (!book->save(changes, {})) return 2;
        }
    };
    for (int i = 0; i < 200; ++i) {
        const pid_t child = Fork(saveForever);
        std::this_thread::sleep_for(std::chrono::microseconds(500 + i * 97 % 5000));
        kill(child, SIGKILL);
        ASSERT_TRUE(WIFSIGNALED(EndOf(child)));
    }
    const Contacts contacts = Loaded(folder);
    EXPECT_EQ(contacts.passedOver, 0u);
    EXPECT_GT(contacts.persons.size(), 1u);
    for (const Person& person : contacts.persons) EXPECT_EQ(person.mailbox, person.last);
    EXPECT_TRUE(Contains(ReadFile(folder / "u.vcf"), note));
}

TEST(FolderBook, TwoWritersLoseNothing) {
    constexpr int kEach = 100;
    const fs::path folder = MakeFolder("book");
    WriteFile(folder / "u.vcf", CardOf("u", "X-COM-KALMO-MAILBOX:0\n"));
    const auto count = [&] {
        const auto book = OpenFolder(folder);
        for (int stored = 0; stored < kEach;) {
            Changes changes{{{}}, {}};
            Person& person = changes.persons[0];
            if (!book->person("u", person, {})) return 1;
            person.mailbox = std::to_string(std::stoi(person.mailbox) + 1);
            const Answer answer = book->save(changes, {});
            if (!answer && answer.code != Code::conflict) return 2;
            stored += answer ? 1 : 0;
        }
        return 0;
    };
    const pid_t one = Fork(count), other = Fork(count);
    EXPECT_EQ(EndOf(one), 0);
    EXPECT_EQ(EndOf(other), 0);
    EXPECT_EQ(Loaded(folder).persons.at(0).mailbox, std::to_string(2 * kEach));
}

}  // namespace
}  // namespace kalmo::test
