#include "support/printer_files.h"

#include "support/private_home.h"

namespace kalmo::test {

std::filesystem::path SamplePPD(const std::string& printer) {
    return std::filesystem::path(KALMO_SOURCE_DIR) / "printers" / (printer + ".ppd");
}

std::filesystem::path WritePPD(const std::string& manufacturer) {
    const auto file = MakeFolder("ppd") / "printer.ppd";
    WriteFile(file,
              "*PPD-Adobe: \"4.3\"\n"
              "*FormatVersion: \"4.3\"\n"
              "*FileVersion: \"1.0\"\n"
              "*LanguageVersion: English\n"
              "*LanguageEncoding: ISOLatin1\n"
              "*PCFileName: \"P.PPD\"\n"
              "*Manufacturer: \"" +
                  manufacturer +
                  "\"\n"
                  "*Product: \"(P)\"\n"
                  "*ModelName: \"P\"\n"
                  "*ShortNickName: \"P\"\n"
                  "*NickName: \"P\"\n"
                  "*PSVersion: \"(3010) 0\"\n"
                  "*OpenUI *PageSize: PickOne\n"
                  "*DefaultPageSize: Letter\n"
                  "*PageSize Letter: \"\"\n"
                  "*PageSize A4: \"\"\n"
                  "*CloseUI: *PageSize\n"
                  "*DefaultImageableArea: Letter\n"
                  "*ImageableArea Letter: \"0 0 612 792\"\n"
                  "*ImageableArea A4: \"0 0 595 842\"\n"
                  "*DefaultPaperDimension: Letter\n"
                  "*PaperDimension Letter: \"612 792\"\n"
                  "*PaperDimension A4: \"595 842\"\n");
    return file;
}

}  // namespace kalmo::test
