// Every key that code and interface files use has a text, in every language, with the same places.
#include "foundation/strings_table.h"
#include "house/resource_files.h"
#include "support/qt_test.h"

namespace kalmo::test {
namespace {

std::string Unescaped(std::string text) {
    for (std::size_t at = 0; (at = text.find('\\', at)) != std::string::npos; ++at)
        text.erase(at, 1);
    return text;
}

/// Key to the file that uses it.
std::map<std::string, std::string> UsedKeys() {
    std::map<std::string, std::string> used;
    const std::regex calls(R"((?:CopyText|CopyTextIfPresent|NoticeKeys|\w+WithKeys)\b([^;]*);)");
    const std::regex constants(R"re(CFSTR\(\s*"((?:[^"\\]|\\.)*)"\s*\))re");
    const std::regex rows(R"re(\{\s*CFSTR\(\s*"((?:[^"\\]|\\.)*)"\s*\))re");
    const std::pair<const char*, std::regex> patternsByFile[] = {
        // Tables of pictures name what each of them says.
        {"", std::regex(R"re("(\w+Description)")re")},
        {"", std::regex(R"re(titleKey = "(\w+)")re")},
        {"setting_maps.cpp", rows},
        {"saved_job_dialog.cpp", rows},
        {"job_notes_controls.cpp", rows},
        // The key stands behind a feature, before a command, or behind a value.
        {"finishing_",
         std::regex(R"re(\{(?:nullptr|CFSTR\("\w+"\)),\s*CFSTR\("([^"]+)"\),\s*k\w+Command)re")},
        {"finishing_", std::regex(R"re(\{CFSTR\("([^"]+)"\),\s*(?:k\w+|'....'))re")},
        {"finishing_",
         std::regex(R"re((?:\{\w+,\s*|return |fold, |punch, )CFSTR\("([^"]+)"\))re")}};
    ForEachFile(kSources, {".cpp"}, [&](const std::filesystem::path& file) {
        if (Contains(file, "/platform/")) return;
        const std::string text = ReadFile(file);
        for (const std::string& call : Matches(text, calls))
            for (const std::string& key : Matches(call, constants)) used[Unescaped(key)] = file;
        for (const auto& [name, pattern] : patternsByFile)
            if (Contains(file.filename(), name))
                for (const std::string& key : Matches(text, pattern)) used[Unescaped(key)] = file;
    });
    const std::regex properties(
        R"re(<property name="(?:textKey|nameKey|tipKey)"[^>]*>\s*<string[^>]*>([^<]*)</string>)re");
    ForEachFile(kResources, {".ui"}, [&](const std::filesystem::path& file) {
        for (const std::string& key : Matches(ReadFile(file), properties))
            used[QTextDocumentFragment::fromHtml(key.c_str()).toPlainText().toStdString()] = file;
    });
    return used;
}

/// What a text is filled with: the kind of each argument. "%2$@" names the second one.
std::map<std::size_t, std::string> Places(const std::string& text) {
    static const std::regex pattern("%(?:([0-9]+)\\$)?(@|d|ld)");
    std::map<std::size_t, std::string> places;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match)
        places[(*match)[1].matched ? std::stoul((*match)[1]) : places.size() + 1] = (*match)[2];
    return places;
}

/// One letter at most is pressed with Alt; Japanese texts have it in brackets at their end.
bool HasLetter(const std::string& text) {
    const std::size_t mark = text.find('&');
    return mark != std::string::npos && text.find('&', mark + 1) == std::string::npos &&
           std::isalnum(static_cast<unsigned char>(text[mark + 1]));
}

const std::filesystem::path kTree = KALMO_SOURCE_DIR;

/// The texts of the pane, of the fax dialogs, of the print window, and of the example.
const struct TableFile {
    std::filesystem::path folder;
    const char* name;
} kTables[] = {{kResources, "Localizable.strings"},
               {kResources, "LANFax.strings"},
               {kTree / "resources/kalmo-print", "Window.strings"},
               {kTree / "examples/color_options/Contents/Resources", "Localizable.strings"}};

StringsTable Table(const TableFile& file, const std::string& language) {
    StringsTable table =
        ReadStringsTable(ReadFile(file.folder / (language + ".lproj") / file.name));
    EXPECT_EQ(table.faults, std::vector<std::string>()) << language;
    return table;
}

TEST(Texts, EveryUsedKeyHasATextInEveryLanguage) {
    const auto used = UsedKeys();
    ASSERT_GT(used.size(), 90u) << "the patterns above no longer fit the code";
    const StringsTable english = Table(kTables[0], "en"), fax = Table(kTables[1], "en");
    const auto isOfFax = [](const std::string& file) {
        return Contains(file, "/src/fax/") || file.ends_with("LANFAX.ui");
    };
    for (const auto& [key, file] : used)
        EXPECT_TRUE(english.texts.contains(key) || (isOfFax(file) && fax.texts.contains(key)))
            << "no \"" << key << "\" of " << file;
}

TEST(Texts, ThePrintWindowShowsEachOfItsTexts) {
    std::set<std::string> used, given;
    const std::regex calls(
        R"re((?:(?:Window|Host)Text\(|addPopup\(|addRow\(|IPP_STATUS_ERROR_\w+,|CFSTR\("\w+"\),(?= "Job type )|\{"[\w-]+", (?:nullptr|"[\w-]+"),(?= "Sent )|\{"[\w %@,-]+",(?= "(?:Reason|Not a) ))\s*"((?:[^"\\]|\\.)*)")re");
    ForEachFile(kSources / "print_dialog", {".cpp", ".h"}, [&](const auto& file) {
        for (const std::string& key : Matches(ReadFile(file), calls)) used.insert(key);
    });
    for (const auto& [key, text] : Table(kTables[2], "en").texts) given.insert(key);
    EXPECT_EQ(used, given);
}

TEST(Texts, ReasonsAreThoseThatTheLibrariesGive) {
    std::string libraries;
    for (const char* folder : {"platform/foundation", "platform/printing", "job_ticket"})
        ForEachFile(kSources / folder, {".cpp"},
                    [&](const auto& file) { libraries += ReadFile(file); });
    const auto reasons =
        Matches(ReadFile(kSources / "print_dialog/reasons.cpp"), std::regex(R"re(\{"([^"]+)",)re"));
    ASSERT_GT(reasons.size(), 25u) << "the pattern no longer fits the code";
    for (const std::string& reason : reasons)
        for (const QString& part : QString::fromStdString(reason).split("%@"))
            EXPECT_TRUE(Contains(libraries, part.trimmed().toStdString())) << reason;
}

TEST(Texts, TranslationsKeepKeysPlacesAndLetters) {
    for (const TableFile& file : kTables) {
        const StringsTable english = Table(file, "en");
        for (const std::string& language : Languages()) {
            const StringsTable table = Table(file, language);
            EXPECT_EQ(table.texts.size(), english.texts.size()) << language << " " << file.name;
            for (const auto& [key, original] : english.texts) {
                SCOPED_TRACE(language + " \"" + key + "\" of " + file.name);
                const auto found = table.texts.find(key);
                if (found == table.texts.end()) {
                    ADD_FAILURE() << "no text";
                    continue;
                }
                const std::string& text = found->second;
                EXPECT_EQ(Places(original), Places(text));
                EXPECT_FALSE(text.empty());
                EXPECT_EQ(QString::fromStdString(text).trimmed().toStdString(), text);
                const bool isPressed = (original + text).find('&') != std::string::npos;
                EXPECT_EQ(HasLetter(text), isPressed) << text;
            }
        }
    }
}

}  // namespace
}  // namespace kalmo::test
