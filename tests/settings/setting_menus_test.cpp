#include "settings/setting_menus.h"

#include "settings/dictionary.h"
#include "settings/installable_options.h"
#include "settings/ppd_file.h"
#include "settings/setting_map.h"
#include "settings/setting_maps.h"
#include "settings/ticket.h"
#include "settings/user_preferences.h"
#include "support/dictionaries.h"

namespace kalmo::test {
namespace {

const SettingMap kMap[] = {
    {CFSTR("ignored"), kPrinterDefault},           {CFSTR("One"), 1, 'Own1'}, {CFSTR("-"), -5},
    {CFSTR("Fax"), 5, 'Fax ', CFSTR("FaxKey"), 1}, {CFSTR("Unheard"), 2},     {}};

struct SettingMenus : testing::Test {
    Owned<CFBundleRef> bundle = Owned<CFBundleRef>::Adopt(OpenBundle(
        WriteBundle(MakeFolder("bundle"), "Menus", "com.example.menus",
                    {{"Resources/en.lproj/Localizable.strings",
                      "\"One\" = \"First\";\n\"-\" = \"-\";\n\"PrinterDefault\" = \"Printer\";\n"
                      "\"UseJobSetting\" = \"Job\";\n\"UseJobName\" = \"Name\";\n"}})));
    Popup popup;
};

TEST_F(SettingMenus, RowsKeepTheirValuesAndTheCountIncludesWhatIsNotOffered) {
    EXPECT_EQ(PopulateMenuFromMap(bundle, popup.menu, kMap, JobContext::job, 0), 5);
    EXPECT_EQ(popup.items(),
              (Items{"Printer=-2147483648", "First=1", "=-5", "STRING NOT FOUND=2"}));
    EXPECT_TRUE(IsMenuItemSeparator(popup.menu, 3));
    UInt32 own = 0, overridden = 0;
    GetMenuItemCommandID(popup.menu, 2, &own);
    EXPECT_EQ(PopulatePopupButtonFromMap(bundle, popup.control, kMap, JobContext::cover, 'Over'),
              5);
    EXPECT_EQ(popup.items(), (Items{"Job=-2147483648", "First=1", "=-5", "STRING NOT FOUND=2"}));
    EXPECT_EQ(GetControl32BitMaximum(popup.control), 5);
    GetMenuItemCommandID(popup.menu, 2, &overridden);
    EXPECT_EQ(std::pair(own, overridden), std::pair(UInt32{'Own1'}, UInt32{'Over'}));
}

TEST_F(SettingMenus, SelectionIsByValueAndAMissKeepsIt) {
    PopulatePopupButtonFromMap(bundle, popup.control, kMap, JobContext::job, 0);
    popup.widget.setCurrentIndex(-1);
    EXPECT_EQ(GetPopupButtonTicketValue(popup.control), 0) << "not the map's address";
    EXPECT_TRUE(SetPopupButtonToTicketValue(popup.control, 2));
    EXPECT_EQ(GetControl32BitValue(popup.control), 4) << "row 5: one row is not offered";
    EXPECT_FALSE(SetPopupButtonToTicketValue(popup.control, 5));
    EXPECT_EQ(GetPopupButtonTicketValue(popup.control), 2);
}

TEST_F(SettingMenus, HistoryFollowsTheGivenItem) {
    const auto file = Owned<CFURLRef>::Adopt(CopyUserPreferencesFolder());
    const std::string folder = TakeText(CFURLCopyFileSystemPath(file));
    WriteFile(folder + "/com.kalmo.print.inputhistory.plist",
              "<plist version=\"1.0\"><dict><key>names</key><array><string>Ann</string>"
              "<integer>3</integer><string>Bob</string></array>"
              "<key>odd</key><string>x</string></dict></plist>");
    const auto fill = [&](CFStringRef key) {
        return PopulatePopupButtonFromMapAndHistory(
            bundle, popup.control, JobNameMap, JobContext::job,
            {.historyKey = key, .insertPosition = 1, .command = 'Hist'}, 'Over');
    };
    EXPECT_EQ(fill(CFSTR("names")), 3);
    EXPECT_EQ(popup.items(), (Items{"Name=" + std::to_string(kMenuOnlyValue), "Ann=0", "Bob=0"}));
    UInt32 command = 0;
    GetMenuItemCommandID(popup.menu, 2, &command);
    EXPECT_EQ(command, UInt32{'Hist'});
    for (const CFStringRef key : {CFSTR("odd"), CFSTR("none"), CFStringRef{}})
        EXPECT_EQ(fill(key), 1);
}

/// Why, map and value; then the row and its key, "" for none.
using LookUp = std::tuple<const char*, const SettingMap*, SInt32, CFIndex, const char*>;

void Expect(std::initializer_list<LookUp> lookUps) {
    for (const auto& [why, map, value, row, key] : lookUps) {
        SCOPED_TRACE(why);
        EXPECT_EQ(TicketToUI(map, value), row);
        EXPECT_EQ(CFStringToUTF8(LocalizedKeyForTicketValue(map, value)), key);
    }
}

const SettingMap kZeroInTheMiddle[] = {
    {CFSTR("five"), 5}, {CFSTR("zero"), 0, 0, CFSTR("FaxKey"), 1}, {CFSTR("seven"), 7}, {}};
const SettingMap kTwoWays[] = {
    {CFSTR("with"), 5, 0, CFSTR("FaxKey"), 1}, {CFSTR("without"), 5, 0, CFSTR("FaxKey"), 0}, {}};

TEST(SettingMap, WalkStopsAtTheFirstZeroOrAtTheEnd) {
    Expect({{"a match", PlexMap, 3, 3, "DuplexShort"},
            {"a miss without a zero row", PlexMap, 4, -1, ""},
            {"the value 0 sought, no zero row", PlexMap, 0, -1, ""},
            {"first row is zero: any value", OutputOptionsMap, 1, 1, "Face Down"},
            {"a row behind the zero", kZeroInTheMiddle, 7, 2, "zero"},
            {"no map", nullptr, 1, -1, ""}});
}

TEST(SettingMap, RowOfTheOtherFeatureStateIsPassedOver) {
    Expect({{"no fax card", kTwoWays, 5, 2, "without"}, {"no storage", JobTypeMap, 3, -1, ""}});
    const PrinterWithPPD printer(InstallableGroup(PPDOption("Option5", "True", {"True", "False"}) +
                                                  PPDOption("Option8", "True", {"True", "False"})));
    ASSERT_TRUE(LoadInstallableOptions(printer.ppd(), InstalledFeatures));
    Expect({{"fax card", kTwoWays, 5, 1, "with"}, {"storage", JobTypeMap, 3, 5, "SavedJob"}});
}

TEST(Ticket, NumbersAreReadAsIndexAndTellWhenNotExact) {
    const auto values = Dictionary("index=1099511627776 true=true");
    const double fraction = 3.5;
    CFDictionarySetNumber(values, CFSTR("fraction"), kCFNumberDoubleType, &fraction);
    for (const auto& [key, exact, expected] : {std::tuple{"index", true, CFIndex{1} << 40},
                                               {"fraction", false, CFIndex{3}},
                                               {"true", false, CFIndex{777}},
                                               {"missing", false, CFIndex{777}}}) {
        CFIndex value = 777;
        EXPECT_EQ(GetCFIndexFromCFDictionary(values, CFStringMakeConstant(key), &value), exact);
        EXPECT_EQ(value, expected) << key;
    }
}

const _InstalledFeatureMap kTable[] = {
    {CFSTR("Staples"), CFSTR("Option4"), CFSTR("Office"), nullptr, 1},
    {CFSTR("Staples"), CFSTR("Option4"), CFSTR("Pro"), CFSTR("Pro label"), 2},
    {CFSTR("Staples"), nullptr, nullptr, CFSTR("Always label"), 3},
    {CFSTR("Fax"), CFSTR("Option5"), CFSTR("True"), CFSTR("Missing label"), 4},
    {},
};

std::string GroupWith(const std::string& staples, const std::string& fax) {
    return InstallableGroup(PPDOption("Option4", staples, {"None", "Office", "Pro"}) +
                            PPDOption("Option5", fax, {"True", "False"}));
}

SInt32 ValueOf(CFStringRef feature) {
    SInt32 value = 777;
    getInstallableOptionTicketValue(feature, &value);
    return value;
}

TEST(InstallableOptions, FirstRowThatHoldsAnswers) {
    const std::tuple<const char*, const char*, SInt32, const char*> rows[] = {
        {"first row, its label is the next one's that holds", "Office", 1, "Always"},
        {"second row", "Pro", 2, "Pro"},
        {"row without an option", "None", 3, "Always"},
    };
    const auto bundle = Owned<CFBundleRef>::Adopt(
        OpenBundle(WriteBundle(MakeFolder("bundle"), "Labels", "com.example.labels",
                               {{"Resources/en.lproj/Localizable.strings",
                                 "\"Pro label\" = \"Pro\";\n\"Always label\" = \"Always\";\n"}})));
    for (const auto& [why, staples, value, label] : rows) {
        SCOPED_TRACE(why);
        const PrinterWithPPD printer(GroupWith(staples, "True"));
        ASSERT_TRUE(LoadInstallableOptions(printer.ppd(), kTable));
        EXPECT_EQ(ValueOf(CFSTR("Staples")), value);
        EXPECT_EQ(
            TakeText(CopyLocalizedStringForInstalledFeatureFromPlugin(CFSTR("Staples"), bundle)),
            label);
        EXPECT_EQ(TakeText(CopyLocalizedStringForInstalledFeatureFromPlugin(CFSTR("Fax"), bundle)),
                  "STRING NOT FOUND");
    }
}

TEST(InstallableOptions, SecondLoadKeepsTheFirstAnswers) {
    PrinterWithPPD printer(GroupWith("Pro", "False"));
    ASSERT_TRUE(LoadInstallableOptions(printer.ppd(), kTable));
    PPDCloseCurrent();
    printer.usePPD(PPDText(GroupWith("Office", "True")));
    EXPECT_FALSE(LoadInstallableOptions(printer.ppd(), InstalledFeatures));
    EXPECT_EQ(ValueOf(CFSTR("Staples")), 2);
    EXPECT_EQ(ValueOf(CFSTR("Fax")), 777) << "none of its rows holds";
    UnloadInstallableOptions();
    EXPECT_TRUE(LoadInstallableOptions(printer.ppd(), kTable));
    EXPECT_TRUE(getInstalledFeature(CFSTR("Fax")));
}

TEST(InstallableOptions, OnlyTheGroupOfThatNameCounts) {
    const PrinterWithPPD printer("*OpenGroup: InstallableOption/Options\n" +
                                 PPDOption("Option5", "True", {"True"}) +
                                 "*CloseGroup: InstallableOption\n");
    EXPECT_FALSE(LoadInstallableOptions(printer.ppd(), kTable));
    EXPECT_TRUE(getInstalledFeature(CFSTR("Staples"))) << "a row without an option holds always";
    EXPECT_FALSE(LoadInstallableOptions(printer.ppd(), kTable)) << "an empty group is loaded too";
}

}  // namespace
}  // namespace kalmo::test
