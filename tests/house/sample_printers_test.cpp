// The pane's device profile and the sample printers tell the same story.
#include "house/resource_files.h"
#include "printing/ppd_conflicts.h"
#include "printing/ppd_papers.h"
#include "settings/ppd_choices.h"

namespace kalmo::test {
namespace {

struct ChoiceSet {
    std::set<std::string> choices;
    std::string standard;
};
using Printer = std::map<std::string, ChoiceSet>;

Printer ReadPrinter(const std::filesystem::path& file) {
    Printer printer;
    const auto description = ReadPPDDescription(file, nullptr).value_or(PPDDescription{});
    for (const PPDOptionTexts& option : description.options) {
        printer[option.keyword].standard = option.defaultChoice;
        // libcups adds the custom size as a choice of its own.
        for (const PPDChoiceText& choice : option.choices)
            if (choice.keyword != "Custom") printer[option.keyword].choices.insert(choice.keyword);
    }
    printer["PageSize"].standard = description.defaultPaper;
    for (const PPDPaper& paper : description.papers)
        printer["PageSize"].choices.insert(paper.keyword);
    return printer;
}

CFDictionaryRef Part(CFDictionaryRef dictionary, CFStringRef key) {
    return static_cast<CFDictionaryRef>(CFDictionaryGetValue(dictionary, key));
}

template <typename Visit>
void ForEachEntry(CFDictionaryRef dictionary, Visit visit) {
    std::vector<CFTypeRef> keys(CFDictionaryGetCount(dictionary));
    std::vector<CFTypeRef> values(keys.size());
    CFDictionaryGetKeysAndValues(dictionary, keys.data(), values.data());
    for (std::size_t i = 0; i < keys.size(); ++i)
        visit(CFStringToUTF8(static_cast<CFStringRef>(keys[i])),
              static_cast<CFDictionaryRef>(values[i]));
}

Printer ReadProfile() {
    const auto list = ReadPlist(ReadFile(kResources / "Device Profile.plist"));
    Printer printer;
    const auto features = Part(static_cast<CFDictionaryRef>(list.get()), CFSTR("Features"));
    ForEachEntry(features, [&printer](const std::string& name, CFDictionaryRef feature) {
        ChoiceSet& set = printer[name];
        const auto keywords = Part(Part(feature, CFSTR("Syntax")), CFSTR("Keyword"));
        ForEachEntry(keywords, [&set](const std::string& choice, CFDictionaryRef keyword) {
            set.choices.insert(choice);
            if (CFDictionaryGetValue(keyword, CFSTR("Default")) == kCFBooleanTrue) {
                set.standard += choice;
            }
        });
    });
    return printer;
}

TEST(DeviceProfile, DescribesEveryOptionOfThePrinterThatHasEverything) {
    const Printer printer = ReadPrinter(SamplePPD("kalmo-production"));
    const Printer profile = ReadProfile();
    EXPECT_GT(printer.size(), 30u);
    for (const auto& [keyword, set] : printer) {
        ASSERT_TRUE(profile.contains(keyword)) << keyword;
        EXPECT_EQ(profile.at(keyword).standard, set.standard) << keyword;
        EXPECT_EQ(profile.at(keyword).choices, set.choices) << keyword;
    }
    // What takes a text or a number has no keywords.
    const auto hasKeywords = [](const auto& row) { return !row.second.choices.empty(); };
    EXPECT_EQ(std::ranges::count_if(profile, hasKeywords), std::ssize(printer));
}

TEST(SamplePrinters, OneHasEveryChoiceThatTicketsKnow) {
    Printer printer = ReadPrinter(SamplePPD("kalmo-production"));
    printer["PageSize"].choices.insert("Custom");
    for (const MainKeywordRow* option = MainKeywordMap; option->keyword; ++option) {
        const std::string keyword = CFStringToUTF8(option->keyword);
        for (const PPDChoiceRow* row = option->choices; row->choice; ++row) {
            const std::string choice = CFStringToUTF8(row->choice);
            EXPECT_TRUE(printer[keyword].choices.contains(choice)) << keyword << ' ' << choice;
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
            for (const auto& [keyword, set] : printer) {
                for (const std::string& choice : set.choices) {
                    const std::string line = "*" + language + "." + keyword + " " + choice;
                    EXPECT_TRUE(Contains(text, line + "/")) << line;
                }
            }
        }
    });
}

}  // namespace
}  // namespace kalmo::test
