// The folder of cards: what every book does, and what sharing the folder takes.
#include <sys/stat.h>

#include <sys/wait.h>
#include <unistd.h>
#include <csignal>

#include <chrono>
#include <thread>

#include "contacts/card_mapping.h"
#include "platform/contacts/conformance.h"
#include "support/programs.h"

namespace kalmo::test {
namespace {

using namespace contacts;

TEST(FolderBook, DoesWhatEveryBookDoes) {
    const auto folder = MakeFolder("book") / "deeper" / "contacts";
    const auto book = OpenFolder(folder);
    Contacts none;
    EXPECT_TRUE(book->load(none, {})) << "a folder that is not there yet is empty";
    ExpectConformance(*book,
                      {[&](const std::string& uid, const std::string& card) {
                           WriteFile(folder / (uid + ".vcf"), card);
                       },
                       [&](const std::string& uid) { return ReadFile(folder / (uid + ".vcf")); }});
}

}  // namespace
}  // namespace kalmo::test
