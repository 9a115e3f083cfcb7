// Settings in their maps, and numbers in a ticket.
#include "settings/setting_map.h"

#include <gtest/gtest.h>

#include "settings/dictionary.h"
#include "settings/ppd_file.h"
#include "settings/setting_maps.h"
#include "settings/ticket.h"

namespace kalmo {
namespace {

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
