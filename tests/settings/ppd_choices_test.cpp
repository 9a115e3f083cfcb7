#include "settings/ppd_choices.h"

#include <gtest/gtest.h>

#include "settings/setting_map.h"

namespace kalmo {
namespace {

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
