// The record of full colour adjustments: its ranges, and its way to a ticket and back.
#include "image_options/full_color_options.h"
#include "support/dictionaries.h"
#include "support/qt_test.h"

namespace kalmo::test {
namespace {

using Record = FullColorOptions;

std::string Text(CFPropertyListRef list) {
    const auto xml = Owned<CFDataRef>::Adopt(CFPropertyListCreateXMLData(nullptr, list));
    return {CFDataGetBytePtr(xml), CFDataGetBytePtr(xml) + CFDataGetLength(xml)};
}
std::string Ticket(const Record& options) {
    return Text(Owned<CFMutableDictionaryRef>::Adopt(options.asTicket()));
}
std::string Name(std::size_t length) { return std::string(length, 'n'); }

const std::string kAll =
    "FCLightness=1 FCContrast=-2 FCSaturation=3 FCTrapping=1 FCTrappingFastDirection=4 "
    "FCTrappingSlowDirection=5 FCBlackOverprint=6 FCTRC=curve RGBImagesProfile=a "
    "RGBTextAndGraphicsProfile=b CMYKImagesProfile=c CMYKTextAndGraphicsProfile=d "
    "DestinationProfile=e GrayImagesProfile=f GrayTextAndGraphicsProfile=g ImageRendering=7 "
    "TextRendering=8 GraphicRendering=9";

TEST(FullColorOptions, TicketsReadOneAfterTheOtherGiveThis) {
    const std::tuple<const char*, std::vector<std::string>, std::string> rows[] = {
        {"everything", {kAll}, kAll},
        {"only trapping 1 has widths",
         {"FCTrapping=2 FCTrappingFastDirection=3 FCTrappingSlowDirection=4"},
         "FCTrapping=2"},
        {"no range but 32 bits",
         {"FCLightness=500 FCContrast=1 FCSaturation=unset", "FCContrast=4294967297"},
         "FCLightness=500 FCContrast=1"},
        {"long names",
         {"DestinationProfile=1 GrayImagesProfile=g",
          "DestinationProfile=" + Name(300) + " GrayImagesProfile=" + Name(256)},
         "DestinationProfile=1 GrayImagesProfile=g"},
        {"wrong types",
         {"FCLightness=\"5\" RGBImagesProfile=true GrayImagesProfile=5 FCColorCast=x"},
         ""},
    };
    for (const auto& [why, tickets, expected] : rows) {
        Record record;
        for (const auto& ticket : tickets) record.fromTicket(Dictionary(ticket));
        record.fromTicket(nullptr);
        EXPECT_EQ(Ticket(record), Text(Dictionary(expected))) << why;
    }
}

TEST(FullColorOptions, ARefusedValueChangesNothing) {
    const auto longName = String(Name(256));
    Record record(Dictionary(kAll));
    for (const OSStatus status :
         {record.setLightness(101), record.setColorCast(1, 2, 101),
          record.setTrappingAdjustment(0, -1), record.setDestinationProfile(2, longName)})
        EXPECT_EQ(status, paramErr);
    EXPECT_EQ(Ticket(record), Text(Dictionary(kAll)));
}

}  // namespace
}  // namespace kalmo::test
