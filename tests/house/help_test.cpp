// The help book: every page is reachable from the first, and no link leads nowhere, in every
// language.
#include <QRegularExpression>
#include <deque>

#include "foundation/strings_table.h"
#include "house/resource_files.h"
#include "support/qt_test.h"

namespace kalmo::test {
namespace {

const std::regex kLinks(R"re(<a href="([^"]+)")re");

/// A control's text as people speak of it: without its letter, its colon, its dots.
std::string Spoken(const std::string& text) {
    static const QRegularExpression marks(R"re(\(&.\)|&|[ …:]+$)re");
    return QString::fromStdString(text).simplified().remove(marks).toStdString();
}

class HelpBook : public testing::TestWithParam<std::string> {
protected:
    static std::filesystem::path folder() { return kResources / (GetParam() + ".lproj") / "Help"; }
};

TEST_P(HelpBook, EveryPageIsReachableAndNoLinkIsBroken) {
    std::set<std::filesystem::path> reached{folder() / "index.htm"};
    std::deque<std::filesystem::path> open(reached.begin(), reached.end());
    while (!open.empty()) {
        const auto page = open.front();
        open.pop_front();
        for (const std::string& link : Matches(ReadFile(page), kLinks)) {
            const std::size_t end = std::min(link.find('#'), link.size());
            const auto target = (page.parent_path() / link.substr(0, end)).lexically_normal();
            ASSERT_TRUE(std::filesystem::exists(target)) << page << " links to " << link;
            const std::string place = link.substr(std::min(end + 1, link.size()));
            EXPECT_TRUE(place.empty() || Contains(ReadFile(target), "name=\"" + place + '"'))
                << page << " links to " << link;
            if (reached.insert(target).second) open.push_back(target);
        }
    }
    ForEachFile(folder(), {".htm"}, [&](const std::filesystem::path& page) {
        EXPECT_TRUE(reached.contains(page)) << page;
        // The viewer takes the nearest first page above a page for that of its book.
        EXPECT_TRUE(page.filename() != "index.htm" || page.parent_path() == folder()) << page;
    });
}

TEST_P(HelpBook, PagesThatCodeOpensExist) {
    // Within a line: the library matches by recursion, and a file between two quotes is deep.
    const std::regex pages(R"re("([^"\n]+\.htm)(?:"|#))re");
    ForEachFile(kSources, {".cpp"}, [&](const std::filesystem::path& file) {
        for (const std::string& page : Matches(ReadFile(file), pages))
            EXPECT_TRUE(std::filesystem::exists(folder() / page)) << page << " of " << file;
    });
}

TEST_P(HelpBook, TasksNameControlsAsTheWindowDoes) {
    std::set<std::string> shown;
    for (const auto& table : {kResources / (GetParam() + ".lproj/Localizable.strings"),
                              kResources / (GetParam() + ".lproj/LANFax.strings"),
                              kSources.parent_path() / "resources/kalmo-print" /
                                  (GetParam() + ".lproj/Window.strings")}) {
        for (const auto& [key, text] : ReadStringsTable(ReadFile(table)).texts)
            shown.insert(Spoken(text));
    }
    const std::regex bold("<b>([^<]*)</b>");
    ForEachFile(folder() / "How_to", {".htm"}, [&](const std::filesystem::path& page) {
        for (const std::string& word : Matches(ReadFile(page), bold))
            EXPECT_TRUE(shown.contains(Spoken(word))) << word << " of " << page;
    });
}

INSTANTIATE_TEST_SUITE_P(Languages, HelpBook, testing::ValuesIn(Languages()));

}  // namespace
}  // namespace kalmo::test
