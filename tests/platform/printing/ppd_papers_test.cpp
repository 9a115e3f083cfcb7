// PPD files: sizes in points, texts in the user's language, and a line for what is no PPD file.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>

#include "printing/ppd_papers.h"
#include "support/private_home.h"

namespace {

constexpr char kPPD[] = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*LanguageEncoding: ISOLatin1
*LanguageVersion: English
*cupsLanguages: "de fr"
*Manufacturer: "Kalmo"
*ModelName: "Tolvane"
*NickName: "Kalmo Tolvane Test"
*OpenUI *PageSize/Paper Size: PickOne
*DefaultPageSize: A4
*PageSize Letter/US Letter: ""
*PageSize A4/A4: ""
*PageSize EnvDL/DL envelope: ""
*PageSize Lost/Has no dimension: ""
*PageSize Endless/Is no sheet: ""
*CloseUI: *PageSize
*PaperDimension Letter: "612 792"
*PaperDimension A4: "595.28 841.89"
*PaperDimension EnvDL: "312 624"
*PaperDimension Endless: "1e30 841"
*PaperDimension OnlyHere: "100 100"
*ImageableArea Letter: "18 36 594 756"
*ImageableArea A4: "12.5 14 580 830"
*ImageableArea EnvDL: "400 600 -5 20"
*CustomPageSize True: "pop"
*ParamCustomPageSize Width: 1 points 72 1000
*de.Translation PageSize/Papierformat: ""
*de.PageSize EnvDL/Umschlag <C3A4>: ""
*de_AT.PageSize EnvDL/Kuvert: ""
*fr.PageSize EnvDL/Enveloppe: ""
*OpenUI *Duplex/2-Sided: PickOne
*DefaultDuplex: None
*Duplex None/Off: ""
*Duplex DuplexNoTumble/Long edge: ""
*CloseUI: *Duplex
*de.Translation Duplex/Beidseitig: ""
*de.Duplex None/Aus: ""
)ppd";

std::filesystem::path Written(const std::string& text) {
    const auto file = kalmo::test::MakeFolder("ppd") / "printer.ppd";
    kalmo::test::WriteFile(file, text);
    return file;
}

PPDDescription Read(const std::string& text) {
    std::string reason;
    const auto description = ReadPPDDescription(Written(text), &reason);
    EXPECT_TRUE(description) << reason;
    return description.value_or(PPDDescription{});
}

/// Puts back what the tests' main has set.
class PPDPapers : public testing::Test {
protected:
    ~PPDPapers() override { speak({{"LC_ALL", "C.UTF-8"}}); }
    static void speak(const std::vector<std::pair<const char*, const char*>>& variables) {
        for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) unsetenv(name);
        for (const auto& [name, value] : variables) setenv(name, value, 1);
    }
};

TEST_F(PPDPapers, HaveSizeAndImageableAreaInPoints) {
    const PPDDescription printer = Read(kPPD);
    EXPECT_EQ(printer.manufacturer, "Kalmo");
    EXPECT_EQ(printer.makeAndModel, "Kalmo Tolvane Test");
    EXPECT_EQ(printer.defaultPaper, "A4");
    EXPECT_TRUE(printer.customSizes);
    // Only what can be chosen and put into a tray.
    ASSERT_EQ(printer.papers.size(), 3u);
    const PPDPaper& a4 = printer.papers[1];
    EXPECT_EQ(a4.keyword, "A4");
    EXPECT_NEAR(a4.width, 595.28, 0.01);
    EXPECT_NEAR(a4.height, 841.89, 0.01);
    EXPECT_NEAR(a4.left, 12.5, 0.01);
    EXPECT_NEAR(a4.bottom, 14, 0.01);
    EXPECT_NEAR(a4.right, 580, 0.01);
    EXPECT_NEAR(a4.top, 830, 0.01);
    // An area inside out is the whole sheet.
    const PPDPaper& envelope = printer.papers[2];
    EXPECT_EQ(envelope.left, 0);
    EXPECT_EQ(envelope.bottom, 0);
    EXPECT_EQ(envelope.right, envelope.width);
    EXPECT_EQ(envelope.top, envelope.height);
}

TEST_F(PPDPapers, SpeakTheUsersLanguageWithoutItsLocale) {
    using Variables = std::vector<std::pair<const char*, const char*>>;
    const struct {
        const char* why;
        Variables variables;
        const char* envelope;
        const char* duplex;
        const char* none;
    } kRows[] = {
        {"no language", {{"LC_ALL", "C.UTF-8"}}, "DL envelope", "2-Sided", "Off"},
        {"German", {{"LANG", "de_DE.UTF-8"}}, "Umschlag ä", "Beidseitig", "Aus"},
        {"country before language", {{"LANG", "de_AT.UTF-8"}}, "Kuvert", "Beidseitig", "Aus"},
        {"LC_ALL before LC_MESSAGES",
         {{"LC_ALL", "fr_FR.UTF-8"}, {"LC_MESSAGES", "de_DE.UTF-8"}},
         "Enveloppe",
         "2-Sided",
         "Off"},
        {"LANGUAGE first, text by text",
         {{"LANG", "en_US.UTF-8"}, {"LANGUAGE", "fr:de"}},
         "Enveloppe",
         "Beidseitig",
         "Aus"},
        {"a language the file lacks", {{"LANG", "ja_JP.UTF-8"}}, "DL envelope", "2-Sided", "Off"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.why);
        speak(row.variables);
        const PPDDescription printer = Read(kPPD);
        ASSERT_EQ(printer.papers.size(), 3u);
        EXPECT_EQ(printer.papers[2].text, row.envelope);
        ASSERT_EQ(printer.options.size(), 1u);
        EXPECT_EQ(printer.options[0].text, row.duplex);
        EXPECT_EQ(printer.options[0].choices[0].text, row.none);
        EXPECT_EQ(printer.options[0].choices[0].keyword, "None");
        EXPECT_EQ(printer.options[0].defaultChoice, "None");
    }
}

TEST_F(PPDPapers, RefuseWhatIsNoPPDFileInOneLine) {
    std::string many = "*PPD-Adobe: \"4.3\"\n";
    for (int i = 0; i < 3000; ++i) many += "*PaperDimension P" + std::to_string(i) + ": \"9 9\"\n";
    const auto folder = kalmo::test::MakeFolder("odd");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    const struct {
        const char* why;
        std::string path;
        std::string reason;
    } kRows[] = {
        {"a text", Written("To whom it may concern\n"), "this is no PPD file"},
        {"empty", Written(""), "this is no PPD file"},
        {"another version", Written("*PPD-Adobe: \"3.0\"\n"), "line 1"},
        {"a broken line", Written(std::string(kPPD) + "no asterisk\n*X\n"), "line "},
        {"too large", Written(kPPD + std::string(9u << 20, ' ')), "8 MiB"},
        {"too many sizes for its reader", Written(many), "2000 paper sizes"},
        {"a pipe", folder / "pipe", "ordinary file"},
        {"a folder", folder, "ordinary file"},
        {"missing", folder / "none.ppd", "No such file"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.why);
        std::string reason;
        EXPECT_FALSE(ReadPPDDescription(row.path, &reason));
        EXPECT_NE(reason.find(row.reason), std::string::npos) << reason;
        EXPECT_EQ(reason.find('\n'), std::string::npos);
    }
    EXPECT_FALSE(ReadPPDDescription(folder / "none.ppd", nullptr));
}

TEST_F(PPDPapers, SurviveEveryCutAndEveryBrokenByte) {
    const std::string whole = kPPD;
    for (std::size_t i = 0; i < whole.size(); i += 7) {
        std::string reason;
        // Refused with a reason or read: either is fine, a crash is not.
        const bool cut = ReadPPDDescription(Written(whole.substr(0, i)), &reason).has_value();
        EXPECT_TRUE(cut || !reason.empty());
        std::string broken = whole;
        broken[i] = static_cast<char>(i % 2 ? 0xff : '"');
        reason.clear();
        const auto description = ReadPPDDescription(Written(broken), &reason);
        EXPECT_TRUE(description || !reason.empty());
        if (!description) continue;
        for (const PPDPaper& paper : description->papers) {
            EXPECT_LT(paper.left, paper.right);
            EXPECT_LE(paper.top, paper.height);
        }
    }
}

}  // namespace
