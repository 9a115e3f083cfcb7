// PPD files: sizes in points, texts in the user's language, and a line for what is no PPD file.
#include <sys/stat.h>

#include <cstdlib>

#include "printing/ppd_file.h"
#include "printing/ppd_papers.h"
#include "support/test.h"

namespace kalmo::test {
namespace {

constexpr char kPPD[] = R"ppd(*PPD-Adobe: "4.3"
*LanguageEncoding: ISOLatin1
*Manufacturer: "Kalmo"
*NickName: "Kalmo Tolvane Test"
*OpenUI *PageSize/Paper Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: ""
*PageSize EnvDL/DL envelope: ""
*PageSize Lost/Has no dimension: ""
*PageSize Endless/Is no sheet: ""
*CloseUI: *PageSize
*PaperDimension A4: "595.28 841.89"
*PaperDimension EnvDL: "312 624"
*PaperDimension Endless: "1e30 841"
*PaperDimension OnlyHere: "100 100"
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
*CloseUI: *Duplex
*de.Translation Duplex/Beidseitig: ""
*de.Duplex None/Aus: ""
)ppd";

std::filesystem::path Written(const std::string& text) {
    const auto file = MakeFolder("ppd") / "printer.ppd";
    WriteFile(file, text);
    return file;
}

PPDDescription Read(const std::string& text) {
    std::string reason;
    const auto description = ReadPPDDescription(Written(text), &reason);
    EXPECT_TRUE(description) << reason;
    return description.value_or(PPDDescription{});
}

TEST(PPDPapers, HaveSizeAndImageableAreaInPoints) {
    const PPDDescription printer = Read(kPPD);
    EXPECT_EQ(printer.manufacturer, "Kalmo");
    EXPECT_EQ(printer.makeAndModel, "Kalmo Tolvane Test");
    EXPECT_EQ(printer.defaultPaper, "A4");
    EXPECT_TRUE(printer.customSizes);
    // Only what can be chosen and put into a tray.
    ASSERT_EQ(printer.papers.size(), 2u);
    const PPDPaper& a4 = printer.papers[0];
    EXPECT_EQ(a4.keyword, "A4");
    const double expected[] = {595.28, 841.89, 12.5, 14, 580, 830};
    const double read[] = {a4.width, a4.height, a4.left, a4.bottom, a4.right, a4.top};
    for (int i = 0; i < 6; ++i) EXPECT_NEAR(read[i], expected[i], 0.01);
    const PPDPaper& envelope = printer.papers[1];
    EXPECT_EQ(std::tuple(envelope.left, envelope.bottom, envelope.right, envelope.top),
              std::tuple(0, 0, envelope.width, envelope.height))
        << "an area inside out is the whole sheet";
}

TEST(PPDPapers, SpeakTheUsersLanguageWithoutItsLocale) {
    const std::tuple<const char*, const char*, const char*, const char*, const char*> kRows[] = {
        {"C.UTF-8", "", "", "DL envelope", "2-Sided"},
        {"", "de_DE.UTF-8", "", "Umschlag ä", "Beidseitig"},
        {"", "de_AT.UTF-8", "", "Kuvert", "Beidseitig"},
        {"fr_FR.UTF-8", "de_DE.UTF-8", "", "Enveloppe", "2-Sided"},
        {"", "en_US.UTF-8", "fr:de", "Enveloppe", "Beidseitig"},  // text by text
    };
    for (const auto& [lcAll, lang, language, envelope, duplex] : kRows) {
        SCOPED_TRACE(std::string(lcAll) + ' ' + lang + ' ' + language);
        setenv("LC_ALL", lcAll, 1);
        setenv("LANG", lang, 1);
        setenv("LANGUAGE", language, 1);
        const PPDDescription printer = Read(kPPD);
        EXPECT_EQ(printer.papers.at(1).text, envelope);
        EXPECT_EQ(printer.options.at(0).text, duplex);
        EXPECT_EQ(printer.options.at(0).choices.at(0).keyword, "None");
        EXPECT_EQ(printer.options.at(0).defaultChoice, "None");
    }
}

TEST(PPDPapers, RefuseWhatIsNoPPDFileInOneLine) {
    std::string many = "*PPD-Adobe: \"4.3\"\n";
    for (int i = 0; i < 3000; ++i) many += "*PaperDimension P" + std::to_string(i) + ": \"9 9\"\n";
    const auto folder = MakeFolder("odd");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    const std::tuple<const char*, std::string, const char*> kRows[] = {
        {"a text", Written("To whom it may concern\n"), "this is no PPD file"},
        {"a broken line", Written(std::string(kPPD) + "no asterisk\n*X\n"), "line "},
        {"too large", Written(kPPD + std::string(9u << 20, ' ')), "8 MiB"},
        {"too many sizes for its reader", Written(many), "2000 paper sizes"},
        {"a pipe", folder / "pipe", "ordinary file"},
        {"missing", folder / "none.ppd", "No such file"},
    };
    for (const auto& [why, path, expected] : kRows) {
        SCOPED_TRACE(why);
        std::string reason;
        EXPECT_FALSE(ReadPPDDescription(path, &reason));
        EXPECT_TRUE(Contains(reason, expected)) << reason;
        EXPECT_EQ(reason.find('\n'), std::string::npos);
    }
}

}  // namespace
}  // namespace kalmo::test
