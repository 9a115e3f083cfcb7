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

TEST(FullColorOptions, ARecordIsCopiedByItsAccessors) {
    const Record from(Dictionary(kAll));
    Record to;
    SInt32 number = 0, slow = 0, fast = 0;
    CFStringRef name = nullptr;
    CFPropertyListRef curve = nullptr;
    const auto copy = [&](auto get, auto set) {
        if constexpr (requires { (to.*set)(number, name); }) {
            EXPECT_EQ((from.*get)(nullptr, &name) & (from.*get)(&number, nullptr), paramErr);
            EXPECT_EQ((from.*get)(&number, &name) | (to.*set)(number, name), noErr);
        } else if constexpr (requires { (from.*get)(&number); }) {
            EXPECT_EQ((from.*get)(nullptr) | (from.*get)(&number) | (to.*set)(number), paramErr);
        } else {
            EXPECT_EQ((from.*get)(&name) | (to.*set)(name), noErr);
        }
    };
    copy(&Record::lightness, &Record::setLightness);
    copy(&Record::contrast, &Record::setContrast);
    copy(&Record::saturation, &Record::setSaturation);
    copy(&Record::trapping, &Record::setTrapping);
    copy(&Record::blackOverprint, &Record::setBlackOverprint);
    copy(&Record::rgbImagesProfile, &Record::setRGBImagesProfile);
    copy(&Record::rgbTextAndGraphicsProfile, &Record::setRGBTextAndGraphicsProfile);
    copy(&Record::cmykImagesProfile, &Record::setCMYKImagesProfile);
    copy(&Record::cmykTextAndGraphicsProfile, &Record::setCMYKTextAndGraphicsProfile);
    copy(&Record::destinationProfile, &Record::setDestinationProfile);
    copy(&Record::grayImagesProfile, &Record::setGrayImagesProfile);
    copy(&Record::grayTextAndGraphicsProfile, &Record::setGrayTextAndGraphicsProfile);
    copy(&Record::imageObjectRendering, &Record::setImageObjectRendering);
    copy(&Record::textObjectRendering, &Record::setTextObjectRendering);
    copy(&Record::graphicObjectRendering, &Record::setGraphicObjectRendering);
    EXPECT_EQ(from.trc(&curve) | to.setTRC(curve), noErr);
    EXPECT_EQ(from.trappingAdjustment(&slow, nullptr) | from.trappingAdjustment(nullptr, &fast), 0);
    EXPECT_EQ(std::pair(slow, fast), std::pair(5, 4)) << "in this order";
    to.setTrappingAdjustment(slow, fast);
    EXPECT_EQ(Ticket(to), Text(Dictionary(kAll)));
}

TEST(FullColorOptions, ARefusedValueChangesNothing) {
    const auto longName = String(Name(256));
    Record record(Dictionary(kAll));
    for (const OSStatus status :
         {record.setLightness(101), record.setLightness(-101), record.setColorCast(1, 2, 101),
          record.setTrappingAdjustment(21, 0), record.setTrappingAdjustment(0, -1),
          record.setRGBImagesProfile(5, nullptr), record.setDestinationProfile(2, longName),
          record.setGrayImagesProfile(longName)})
        EXPECT_EQ(status, paramErr);
    EXPECT_EQ(record.setCMYKImagesProfile(1, longName), noErr) << "nor kept";
    record.fromTicket(Dictionary(kAll + " CMYKImagesProfile=3"));
    EXPECT_EQ(Ticket(record), Text(Dictionary(kAll)));
    EXPECT_EQ(record.setLightness(INT32_MIN) | record.setGrayImagesProfile(nullptr), noErr);
    EXPECT_EQ(record.setGrayImagesProfile(String(Name(255))), noErr);
    EXPECT_NE(Ticket(record), Text(Dictionary(kAll)));
}

TEST(FullColorOptions, TicketsReadOneAfterTheOtherGiveThis) {
    const std::tuple<const char*, std::vector<std::string>, std::string> rows[] = {
        {"nothing set", {""}, ""},
        {"only trapping 1 has widths",
         {"FCTrapping=2 FCTrappingFastDirection=3 FCTrappingSlowDirection=4"},
         "FCTrapping=2"},
        {"a width without a key",
         {"FCTrapping=1 FCTrappingFastDirection=3 FCTrappingSlowDirection=4",
          "FCTrapping=1 FCTrappingSlowDirection=4"},
         "FCTrapping=1 FCTrappingSlowDirection=4"},
        {"no range but 32 bits",
         {"FCLightness=500 FCContrast=1 FCSaturation=unset", "FCContrast=4294967297"},
         "FCLightness=500 FCContrast=1"},
        {"a name stays behind a built-in kind",
         {"CMYKImagesProfile=x", "CMYKImagesProfile=5", "CMYKImagesProfile=3"},
         "CMYKImagesProfile=x"},
        {"built in here, named without a name there",
         {"CMYKImagesProfile=5 RGBImagesProfile=5 DestinationProfile=2"},
         "CMYKImagesProfile=5"},
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
    Record all(Dictionary(kAll)), withoutWidths = all;
    withoutWidths.setTrappingAdjustment(INT32_MIN, INT32_MIN);
    all.fromTicket(Dictionary("FCTrappingSlowDirection=4"));
    all.setTrapping(1);
    EXPECT_EQ(Ticket(all), Ticket(withoutWidths)) << "no trapping takes the widths, all else stays";
}

TEST(FullColorOptions, AColourCastIsWrittenWholeAndReadPieceByPiece) {
    const auto outer = Dictionary(""), inner = Dictionary("FCCyanRed=1 FCYellowBlue=3");
    CFDictionarySetValue(outer, CFSTR("FCColorCast"), inner.get());
    Record record(outer);
    EXPECT_EQ(Ticket(record), Text(Dictionary("")));
    SInt32 cyanRed = 0, magentaGreen = 0;
    EXPECT_EQ(record.colorCast(&cyanRed, &magentaGreen, nullptr), noErr);
    EXPECT_EQ(std::pair(cyanRed, magentaGreen), std::pair(1, INT32_MIN));
    record.setColorCast(cyanRed, 2, 3);
    CFDictionarySetValue(inner, CFSTR("FCMagentaGreen"), Value("2"));
    EXPECT_TRUE(CFEqual(Owned<CFMutableDictionaryRef>::Adopt(record.asTicket()), outer));
}

}  // namespace
}  // namespace kalmo::test
