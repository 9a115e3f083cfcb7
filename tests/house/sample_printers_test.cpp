// The sample printers: what tickets know, no conflicts, every language.
#include "house/resource_files.h"
#include "printing/ppd_conflicts.h"
#include "printing/ppd_papers.h"
#include "settings/ppd_choices.h"

namespace kalmo::test {
namespace {

/// The choices of each option.
using Printer = std::map<std::string, std::set<std::string>>;

Printer ReadPrinter(const std::filesystem::path& file) {
    Printer printer;
    const auto description = ReadPPDDescription(file, nullptr).value_or(PPDDescription{});
    for (const PPDOptionTexts& option : description.options) {
        // libcups adds the custom size as a choice of its own.
        for (const PPDChoiceText& choice : option.choices)
            if (choice.keyword != "Custom") printer[option.keyword].insert(choice.keyword);
    }
    for (const PPDPaper& paper : description.papers) printer["PageSize"].insert(paper.keyword);
    return printer;
}

TEST(SamplePrinters, OneHasEveryChoiceThatTicketsKnow) {
    Printer printer = ReadPrinter(SamplePPD("kalmo-production"));
    printer["PageSize"].insert("Custom");
    for (const MainKeywordRow* option = MainKeywordMap; option->keyword; ++option) {
        const std::string keyword = CFStringToUTF8(option->keyword);
        for (const PPDChoiceRow* row = option->choices; row->choice; ++row) {
            const std::string choice = CFStringToUTF8(row->choice);
            EXPECT_TRUE(printer[keyword].contains(choice)) << keyword << ' ' << choice;
        }
    }
}

TEST(SamplePrinters, StartWithoutConflictsAndSpeakEveryLanguage) {
    ForEachFile(SamplePPD("any").parent_path(), {".ppd"}, [](const std::filesystem::path& file) {
        SCOPED_TRACE(file);
        const std::string text = ReadFile(file);
        EXPECT_TRUE(Contains(text, "*Manufacturer: \"Kalmo\""));
        const Printer printer = ReadPrinter(file);
        const auto rules = PPDConstraints::Open(file, nullptr);
        EXPECT_TRUE(rules->conflicts({}).empty());
        EXPECT_EQ(
            rules->conflicts({{"MediaType", "Transparency"}, {"StapleLocation", "SinglePortrait"}})
                .empty(),
            !printer.contains("StapleLocation"));
        // A reader keeps the texts of one language only.
        const std::string named = Matches(text, std::regex("cupsLanguages: \"(.*)\"")).at(0);
        EXPECT_EQ(named.size() + 1, 3 * Languages().size()) << named;
        for (const std::string& language : Languages()) {
            EXPECT_TRUE(Contains(named, language)) << named;
            if (language == "en") continue;
            for (const auto& [keyword, choices] : printer) {
                for (const std::string& choice : choices) {
                    const std::string line = "*" + language + "." + keyword + " " + choice;
                    EXPECT_TRUE(Contains(text, line + "/")) << line;
                }
            }
        }
    });
}

}  // namespace
}  // namespace kalmo::test
