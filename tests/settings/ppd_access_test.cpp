#include <gtest/gtest.h>
#include <sys/stat.h>

#include "settings/ppd_choices.h"
#include "settings/ppd_file.h"
#include "settings/setting_map.h"
#include "shell/base/plugin_bundle.h"
#include "support/bundles.h"
#include "system/system.h"

namespace kalmo {
namespace {

using test::PPDOption;
using test::PPDText;
using test::PrinterWithPPD;
using test::TakeText;

TEST(PPDAccess, PrinterIsOpenedOnceAndAFailureIsNotRemembered) {
    PrinterWithPPD printer("");
    const auto folder = test::MakeFolder("ppd");
    ASSERT_EQ(mkfifo((folder / "pipe.ppd").c_str(), 0600), 0);
    for (const std::string name : {"missing.ppd", "", "pipe.ppd"}) {
        SCOPED_TRACE(name);
        printer.useFile(folder / name);
        EXPECT_EQ(printer.ppd(), nullptr);
    }
    printer.usePPD(PPDText("*Manufacturer: \"Kalmo\"\n"));
    const PPDRef first = printer.ppd();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(PPDManufacturer(first), "Kalmo");
    printer.usePPD(PPDText(""));
    EXPECT_EQ(printer.ppd(), first);
    PPDCloseCurrent();
    EXPECT_EQ(PPDManufacturer(printer.ppd()), "");
}

TEST(PPDAccess, TextsAndDefaultsOrNull) {
    const PrinterWithPPD printer(PPDOption("KLFold", "Z", {"C/Büroklammer", "Z/\xFF\xFE", "None"}) +
                                 PPDOption("KLPunch", "", {"None"}));
    const PPDRef ppd = printer.ppd();
    EXPECT_EQ(TakeText(PPDCopyChoiceText(ppd, CFSTR("KLFold"), CFSTR("C"))), "Büroklammer");
    EXPECT_EQ(TakeText(PPDCopyChoiceText(ppd, CFSTR("KLFold"), CFSTR("Z"))), "(null)")
        << "no UTF-8";
    EXPECT_EQ(TakeText(PPDCopyChoiceText(ppd, CFSTR("KLFold"), CFSTR("BiFold"))), "(null)");
    EXPECT_EQ(TakeText(PPDCopyDefaultChoice(ppd, CFSTR("KLPunch"))), "(null)");
    EXPECT_EQ(TakeText(PPDCopyDefaultChoice(ppd, test::String(std::string(5000, 'K')))), "(null)");
}

TEST(PPDAccess, TicketChoiceBeforeDefaultAndUnknownIsMinusOne) {
    const PrinterWithPPD printer(PPDOption("KLFold", "C", {"C", "Z"}) +
                                 PPDOption("KLPunch", "", {"None"}) +
                                 PPDOption("Duplex", "Odd", {"Odd"}));
    PPDSetCurrentChoice(printer.ticket(), CFSTR("Resolution"), CFSTR("600x600dpi"));
    PPDSetCurrentChoice(printer.ticket(), CFSTR("Resolution"), nullptr);
    const auto valueOf = [&](CFStringRef keyword) {
        SInt32 value = 777;
        PPDGetTicketValueForChoiceOrDefault(printer.ppd(), printer.ticket(), keyword, &value);
        return value;
    };
    EXPECT_EQ(valueOf(CFSTR("Resolution")), 2) << "not in the PPD; null must not remove it";
    EXPECT_EQ(valueOf(CFSTR("KLFold")), 19);
    EXPECT_EQ(valueOf(CFSTR("KLPunch")), 777) << "neither choice nor default";
    EXPECT_EQ(valueOf(CFSTR("Duplex")), -1) << "default not in the map";
    PPDSetCurrentChoice(printer.ticket(), CFSTR("KLFold"), CFSTR("Unheard"));
    EXPECT_EQ(valueOf(CFSTR("KLFold")), -1) << "no way back to the default";
}

TEST(PPDAccess, LocalizerOfTheBundleIsAskedFrom10_5On) {
    const auto folder = test::MakeFolder("bundle");
    const auto host = test::WriteBundle(folder, "Host", "com.example.host", {});
    const auto localizer =
        test::WriteBundle(host / "Contents/Resources", "OrvikCups", "com.example.orvik", {});
    std::filesystem::create_directory(localizer / "Contents/Linux");
    std::filesystem::create_symlink(std::string(KALMO_BINARY_DIR) + "/lib/test_localizer.so",
                                    localizer / "Contents/Linux/OrvikCups.so");
    const auto bundle = Owned<CFBundleRef>::Adopt(test::OpenBundle(host));
    gBundle = bundle;
    for (const auto& [version, text] :
         {std::pair{0x1040, "Plain"}, {kSystemVersion10_5, "Localized"}}) {
        SetSystemVersionForTests(version);
        const PrinterWithPPD printer(PPDOption("KLFold", "C", {"C/Plain"}));
        EXPECT_EQ(TakeText(PPDCopyChoiceText(printer.ppd(), CFSTR("KLFold"), CFSTR("C"))), text);
    }
    gBundle = nullptr;
}

TEST(PPDChoices, FirstRowCountsInBothDirections) {
    const struct {
        const char *why, *keyword, *choice;
        SInt32 value;
        const char* back;  // "" for none
    } rows[] = {
        {"shared value", "OutputBin", "Bottom", 5, "Upper"},
        {"printer default is a value", "OutputBin", "PrinterDefault", kPrinterDefault,
         "PrinterDefault"},
        {"second row of a choice is never reached", "MediaType", "CardStock", 12, "CardStock"},
        {"its value leads to it all the same", "MediaType", "CardStockF", 43, "CardStock"},
        {"shared sources", "KLBackCoverSheet", "Bypass", 100, "Bypass"},
        {"false is one here", "JCLTrueGrayImages", "False", 1, "False"},
        {"and zero here", "KLOutputOption", "False", 0, "False"},
        {"case counts", "Duplex", "none", -1, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const CFStringRef keyword = CFStringMakeConstant(row.keyword);
        EXPECT_EQ(PPDTicketValueForChoice(keyword, CFStringMakeConstant(row.choice)), row.value);
        EXPECT_EQ(CFStringToUTF8(PPDChoiceForTicketValue(keyword, row.value)), row.back);
    }
}

TEST(PPDChoices, MinusOneIsAValueOfImageQuality) {
    EXPECT_EQ(FindTicketValueForChoice(CFSTR("KLImageQuality"), CFSTR("Lighten1")), -1);
    EXPECT_EQ(FindTicketValueForChoice(CFSTR("KLImageQuality"), CFSTR("Lighten6")), std::nullopt);
    EXPECT_EQ(PPDTicketValueForChoice(CFSTR("KLImageQuality"), CFSTR("Lighten6")), -1);
}

}  // namespace
}  // namespace kalmo
