#include "support/printer_files.h"

#include <algorithm>
#include <regex>

#include "support/private_home.h"

namespace kalmo::test {

std::filesystem::path SamplePPD(const std::string& printer) {
    return std::filesystem::path(KALMO_SOURCE_DIR) / "printers" / (printer + ".ppd");
}

std::set<std::vector<std::pair<std::string, std::string>>> ConstraintsIn(
    const std::filesystem::path& ppd) {
    static const std::regex line(
        R"re(\n\*(?:(?:Non)?UIConstraints|cupsUIConstraints(?:\s+\w+)?):\s*([^\r\n]*))re");
    static const std::regex word(R"re(\*(\w+)(?:\s+([^\s*"]+))?)re");
    const std::string text = ReadFile(ppd);
    std::set<std::vector<std::pair<std::string, std::string>>> found;
    for (std::sregex_iterator at(text.begin(), text.end(), line), end; at != end; ++at) {
        const std::string words = (*at)[1];
        std::vector<std::pair<std::string, std::string>> together;
        for (std::sregex_iterator term(words.begin(), words.end(), word); term != end; ++term)
            together.emplace_back((*term)[1], (*term)[2]);
        std::ranges::sort(together);
        found.insert(together);
    }
    return found;
}

std::string PPDOption(const std::string& keyword, const std::string& defaultChoice,
                      const std::vector<std::string>& choices) {
    std::string text = "*OpenUI *" + keyword + ": PickOne\n";
    if (!defaultChoice.empty()) text += "*Default" + keyword + ": " + defaultChoice + "\n";
    for (const std::string& choice : choices) text += "*" + keyword + " " + choice + ": \"\"\n";
    return text + "*CloseUI: *" + keyword + "\n";
}

std::string PPDText(const std::string& body) {
    return "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
           "*LanguageVersion: English\n*LanguageEncoding: UTF-8\n*PCFileName: \"TEST.PPD\"\n"
           "*Product: \"(Test)\"\n*PSVersion: \"(3010.000) 0\"\n*ModelName: \"Test\"\n"
           "*ShortNickName: \"Test\"\n*NickName: \"Test\"\n" +
           body;
}

std::filesystem::path WritePPD(const std::string& manufacturer) {
    const auto file = MakeFolder("ppd") / "printer.ppd";
    WriteFile(file, PPDText("*Manufacturer: \"" + manufacturer + "\"\n" +
                            PPDOption("PageSize", "Letter", {"Letter", "A4"}) +
                            "*DefaultImageableArea: Letter\n"
                            "*ImageableArea Letter: \"0 0 612 792\"\n"
                            "*ImageableArea A4: \"0 0 595 842\"\n"
                            "*DefaultPaperDimension: Letter\n"
                            "*PaperDimension Letter: \"612 792\"\n"
                            "*PaperDimension A4: \"595 842\"\n"));
    return file;
}

}  // namespace kalmo::test
