#include <sys/stat.h>

#include "settings/ppd_choices.h"
#include "settings/ppd_file.h"
#include "settings/ppd_menus.h"
#include "settings/setting_map.h"
#include "shell/base/plugin_bundle.h"
#include "system/system.h"

namespace kalmo::test {
namespace {

TEST(PPDAccess, PrinterIsOpenedOnceAndAFailureIsNotRemembered) {
    PrinterWithPPD printer("");
    const auto folder = MakeFolder("ppd");
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
    const auto folder = MakeFolder("bundle");
    const auto host = WriteBundle(folder, "Host", "com.example.host", {});
    const auto localizer =
        WriteBundle(host / "Contents/Resources", "OrvikCups", "com.example.orvik", {});
    std::filesystem::create_directory(localizer / "Contents/Linux");
    std::filesystem::create_symlink(std::string(KALMO_BINARY_DIR) + "/lib/test_localizer.so",
                                    localizer / "Contents/Linux/OrvikCups.so");
    const auto bundle = Owned<CFBundleRef>::Adopt(OpenBundle(host));
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
    const std::tuple<const char*, const char*, const char*, SInt32, const char*> rows[] = {
        {"shared value", "OutputBin", "Bottom", 5, "Upper"},
        {"second row of a choice is never reached", "MediaType", "CardStock", 12, "CardStock"},
        {"its value leads to it all the same", "MediaType", "CardStockF", 43, "CardStock"},
        {"false is one here", "JCLTrueGrayImages", "False", 1, "False"},
        {"and zero here", "KLOutputOption", "False", 0, "False"},
        {"a value like any", "KLImageQuality", "Lighten1", -1, "Lighten1"},
    };
    for (const auto& [why, option, choice, value, back] : rows) {
        SCOPED_TRACE(why);
        const CFStringRef keyword = CFStringMakeConstant(option);
        EXPECT_EQ(PPDTicketValueForChoice(keyword, CFStringMakeConstant(choice)), value);
        EXPECT_EQ(CFStringToUTF8(PPDChoiceForTicketValue(keyword, value)), back);
    }
}

constexpr auto ignore = Constraints::ignore;
constexpr auto respect = Constraints::respect;

TEST(PPDMenus, KnownChoicesInTheOrderOfThePPD) {
    const PrinterWithPPD printer(
        PPDOption("KLFold", "C", {"Z/Zed", "Origami/Swan", "C/\xFF\xFE", "None/"}));
    Popup popup;
    testing::internal::CaptureStderr();
    EXPECT_EQ(
        PPDPopulateMenuWithChoices(popup.menu, printer.ppd(), CFSTR("KLFold"), 'Fold', ignore), 3);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Skipped unrecognized choice in PPD: Origami\n");
    EXPECT_EQ(popup.items(), (Items{"Zed=20", "C=19", "None=1"}));
}

TEST(PPDMenus, ConflictsWithTheDefaultsAreLeftOutOnRequest) {
    const auto options = PPDOption("KLFold", "None", {"None", "C", "Z"}) +
                         PPDOption("Duplex", "DuplexNoTumble", {"None", "DuplexNoTumble"}) +
                         "*UIConstraints: *KLFold C *Duplex DuplexNoTumble\n";
    const auto conflict = PPDOption("KLPunch", "HolePunch", {"None", "HolePunch"}) +
                          "*UIConstraints: *KLPunch HolePunch *Duplex DuplexNoTumble\n";
    const std::tuple<const char*, std::string, const char*, Constraints, Items> rows[] = {
        {"what was marked before does not count", options, "None", respect, {"None=1", "Z=20"}},
        {"constraints ignored", options, "DuplexNoTumble", ignore, {"None=1", "C=19", "Z=20"}},
        {"defaults that conflict empty every menu", options + conflict, "None", respect, {}},
    };
    for (const auto& [why, ppd, marked, constraints, items] : rows) {
        SCOPED_TRACE(why);
        const PrinterWithPPD printer(ppd);
        PPDMarkDefaults(printer.ppd());
        PPDMarkChoice(printer.ppd(), "Duplex", marked);
        Popup popup;
        PPDPopulatePopupWithChoices(popup.control, printer.ppd(), CFSTR("KLFold"), constraints);
        EXPECT_EQ(popup.items(), items);
    }
}

}  // namespace
}  // namespace kalmo::test
