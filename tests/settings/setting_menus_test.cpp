#include "settings/setting_menus.h"

#include <gtest/gtest.h>

#include "settings/dictionary.h"
#include "settings/popup.h"
#include "settings/ppd_file.h"
#include "settings/setting_map.h"
#include "settings/setting_maps.h"
#include "settings/ticket.h"
#include "settings/user_preferences.h"
#include "support/bundles.h"

namespace kalmo {
namespace {

using test::Items;
using test::Popup;

const SettingMap kMap[] = {
    {CFSTR("ignored"), kPrinterDefault},           {CFSTR("One"), 1, 'Own1'}, {CFSTR("-"), -5},
    {CFSTR("Fax"), 5, 'Fax ', CFSTR("FaxKey"), 1}, {CFSTR("Unheard"), 2},     {}};

class SettingMenus : public testing::Test {
protected:
    Owned<CFBundleRef> bundle = Owned<CFBundleRef>::Adopt(test::OpenBundle(test::WriteBundle(
        test::MakeFolder("bundle"), "Menus", "com.example.menus",
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
    const std::string folder = test::TakeText(CFURLCopyFileSystemPath(file));
    test::WriteFile(folder + "/com.kalmo.print.inputhistory.plist",
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

using test::InstallableGroup;
using test::PPDOption;
using test::PrinterWithPPD;

struct LookUp {
    const char* why;
    const SettingMap* map;
    SInt32 value;
    CFIndex row;
    const char* key;  // "" for none
};

void Expect(std::initializer_list<LookUp> lookUps) {
    for (const LookUp& each : lookUps) {
        SCOPED_TRACE(each.why);
        EXPECT_EQ(TicketToUI(each.map, each.value), each.row);
        EXPECT_EQ(CFStringToUTF8(LocalizedKeyForTicketValue(each.map, each.value)), each.key);
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
    const auto values =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    const double fraction = 3.5;
    WriteTicketValue(values, CFSTR("index"), CFIndex{1} << 40);
    CFDictionarySetNumber(values, CFSTR("fraction"), kCFNumberDoubleType, &fraction);
    CFDictionarySetValue(values, CFSTR("true"), kCFBooleanTrue);
    const struct {
        const char* key;
        bool exact;
        CFIndex value;
    } rows[] = {{"index", true, CFIndex{1} << 40},
                {"fraction", false, 3},
                {"true", false, 777},
                {"missing", false, 777}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        CFIndex value = 777;
        EXPECT_EQ(GetCFIndexFromCFDictionary(values, CFStringMakeConstant(row.key), &value),
                  row.exact);
        EXPECT_EQ(value, row.value);
    }
}

}  // namespace
}  // namespace kalmo
