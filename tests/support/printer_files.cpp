#include "support/printer_files.h"

#include "support/private_home.h"

namespace kalmo::test {

std::filesystem::path SamplePPD(const std::string& printer) {
    return std::filesystem::path(KALMO_SOURCE_DIR) / "printers" / (printer + ".ppd");
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
