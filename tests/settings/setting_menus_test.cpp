#include "settings/setting_menus.h"

#include "settings/installable_options.h"
#include "settings/ppd_file.h"
#include "settings/setting_map.h"
#include "settings/setting_maps.h"

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
                      "\"UseJobSetting\" = \"Job\";\n"}})));
    Popup popup;
};

TEST_F(SettingMenus, RowsKeepTheirValuesAndTheCountIncludesWhatIsNotOffered) {
    EXPECT_EQ(PopulateMenuFromMap(bundle, popup.menu, kMap, JobContext::job, 0), 5);
    EXPECT_EQ(popup.items(),
              (Items{"Printer=-2147483648", "First=1", "=-5", "STRING NOT FOUND=2"}));
    EXPECT_TRUE(IsMenuItemSeparator(popup.menu, 3));
    EXPECT_EQ(PopulatePopupButtonFromMap(bundle, popup.control, kMap, JobContext::cover, 0), 5);
    EXPECT_EQ(popup.items(), (Items{"Job=-2147483648", "First=1", "=-5", "STRING NOT FOUND=2"}));
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
            {"first row is zero: any value", OutputOptionsMap, 1, 1, "Face Down"},
            {"a row behind the zero", kZeroInTheMiddle, 7, 2, "zero"}});
}

TEST(SettingMap, RowOfTheOtherFeatureStateIsPassedOver) {
    Expect({{"no fax card", kTwoWays, 5, 2, "without"}, {"no storage", JobTypeMap, 3, -1, ""}});
    const PrinterWithPPD printer(InstallableGroup(PPDOption("Option5", "True", {"True", "False"}) +
                                                  PPDOption("Option8", "True", {"True", "False"})));
    ASSERT_TRUE(LoadInstallableOptions(printer.ppd(), InstalledFeatures));
    Expect({{"fax card", kTwoWays, 5, 1, "with"}, {"storage", JobTypeMap, 3, 5, "SavedJob"}});
}

const _InstalledFeatureMap kTable[] = {
    {CFSTR("Staples"), CFSTR("Option4"), CFSTR("Office"), nullptr, 1},
    {CFSTR("Staples"), CFSTR("Option4"), CFSTR("Pro"), CFSTR("Pro label"), 2},
    {CFSTR("Staples"), nullptr, nullptr, CFSTR("Always label"), 3},
    {CFSTR("Fax"), CFSTR("Option5"), CFSTR("True"), CFSTR("Missing label"), 4},
    {},
};

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
        const PrinterWithPPD printer(
            InstallableGroup(PPDOption("Option4", staples, {"None", "Office", "Pro"}) +
                             PPDOption("Option5", "True", {"True", "False"})));
        ASSERT_TRUE(LoadInstallableOptions(printer.ppd(), kTable));
        SInt32 found = 0;
        getInstallableOptionTicketValue(CFSTR("Staples"), &found);
        EXPECT_EQ(found, value);
        EXPECT_EQ(
            TakeText(CopyLocalizedStringForInstalledFeatureFromPlugin(CFSTR("Staples"), bundle)),
            label);
        EXPECT_EQ(TakeText(CopyLocalizedStringForInstalledFeatureFromPlugin(CFSTR("Fax"), bundle)),
                  "STRING NOT FOUND");
    }
}

}  // namespace
}  // namespace kalmo::test
