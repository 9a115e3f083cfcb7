// The pane's device profile and the sample printers tell the same story.
#include <cups/ppd.h>

#include <sstream>

#include "house/resource_files.h"
#include "settings/ppd_choices.h"
#include "support/qt_test.h"

#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kalmo::test {
namespace {

const std::filesystem::path kPrinters = std::filesystem::path(KALMO_SOURCE_DIR) / "printers";

struct ChoiceSet {
    std::set<std::string> choices;
    std::string standard;
    bool operator==(const ChoiceSet&) const = default;
};
using Printer = std::map<std::string, ChoiceSet>;

struct PPDCloser {
    void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};
using OwnedPPD = std::unique_ptr<ppd_file_t, PPDCloser>;

OwnedPPD SamplePrinter(const std::string& name) {
    return OwnedPPD(ppdOpenFile((kPrinters / name).c_str()));
}

template <typename Visit>
void ForEachOption(ppd_file_t* ppd, Visit visit) {
    for (int group = 0; group < ppd->num_groups; ++group) {
        for (int i = 0; i < ppd->groups[group].num_options; ++i) {
            visit(ppd->groups[group].options[i]);
        }
    }
}

Printer ReadPrinter(ppd_file_t* ppd) {
    Printer printer;
    ForEachOption(ppd, [&printer](const ppd_option_t& option) {
        ChoiceSet& set = printer[option.keyword];
        set.standard = option.defchoice;
        for (int i = 0; i < option.num_choices; ++i) {
            // libcups adds the custom size as a choice of its own.
            const std::string choice = option.choices[i].choice;
            if (choice != "Custom") set.choices.insert(choice);
        }
    });
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
    const OwnedPPD ppd = SamplePrinter("kalmo-production.ppd");
    ASSERT_TRUE(ppd);
    const Printer printer = ReadPrinter(ppd.get());
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
    const OwnedPPD ppd = SamplePrinter("kalmo-production.ppd");
    Printer printer = ReadPrinter(ppd.get());
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
    for (const auto& file : std::filesystem::directory_iterator(kPrinters)) {
        if (file.path().extension() != ".ppd") continue;
        SCOPED_TRACE(file.path().filename());
        const OwnedPPD ppd = SamplePrinter(file.path().filename());
        ASSERT_TRUE(ppd);
        EXPECT_STREQ(ppd->manufacturer, "Kalmo");
        ppdMarkDefaults(ppd.get());
        EXPECT_EQ(ppdConflicts(ppd.get()), 0);
        if (ppdFindOption(ppd.get(), "StapleLocation")) {
            ppdMarkOption(ppd.get(), "MediaType", "Transparency");
            EXPECT_GT(ppdMarkOption(ppd.get(), "StapleLocation", "SinglePortrait"), 0);
        }
        // libcups itself keeps the texts of one language only.
        const std::string text = ReadFile(file.path());
        std::istringstream named(ppdFindAttr(ppd.get(), "cupsLanguages", nullptr)->value);
        std::vector<std::string> languages(std::istream_iterator<std::string>(named), {});
        std::ranges::sort(languages);
        EXPECT_EQ(languages, Languages());
        std::erase(languages, "en");
        for (const std::string& language : languages) {
            ForEachOption(ppd.get(), [&](const ppd_option_t& option) {
                for (int i = 0; i < option.num_choices; ++i) {
                    const std::string choice = option.choices[i].choice;
                    if (choice == "Custom") continue;
                    const std::string line = "*" + language + "." + option.keyword + " " + choice;
                    EXPECT_TRUE(Contains(text, line + "/")) << line;
                }
            });
        }
    }
}

}  // namespace
}  // namespace kalmo::test
