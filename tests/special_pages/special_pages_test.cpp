// Image shift and covers on their way to the ticket and back.
#include "kalmo/pde.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "special_pages/covers.h"
#include "special_pages/image_shift.h"
#include "support/dictionaries.h"
#include "support/qt_test.h"

namespace kalmo::test {
namespace {

_IS_Options Shift(bool inches, SInt32 x1) {
    _IS_Options options;
    ImageShiftInitialize(nullptr, nullptr, &options);
    options.Option = 3, options.Inches = inches;
    options.X1 = x1, options.X2 = 10, options.Y1 = 20, options.Y2 = 30;
    return options;
}

TEST(ImageShift, FullPrecisionRoundsOnWritingAndCutsOnReading) {
    const std::tuple<const char*, bool, SInt32, CFIndex, SInt32> rows[] = {
        {"exact", true, 5, 127, 5},
        {"one unit is lost on the way back", true, 1, 25, 0},
        {"negative, towards zero", true, -1, -25, 0},
        {"metric", false, 12, 120, 12},
        {"smallest", false, INT32_MIN, -21474836480, INT32_MIN},
    };
    for (const auto& [why, inches, own, ticket, readBack] : rows) {
        SCOPED_TRACE(why);
        const _IS_Options written = Shift(inches, own);
        const auto dictionary = Owned<CFDictionaryRef>::Adopt(
            ImageShiftCreateTicketFromOptions(&written, JobContext::exception));
        CFIndex stored = 0;
        GetCFIndexFromCFDictionary(dictionary, CFSTR("X1"), &stored);
        EXPECT_EQ(stored, ticket);
        _IS_Options read;
        ImageShiftSetOptionsFromTicket(dictionary, &read);
        EXPECT_EQ(read.X1, readBack);
        EXPECT_EQ(std::tuple(read.X2, read.Y1, read.Y2), std::tuple(10, 20, 30));
    }
}

TEST(ImageShift, OtherValuesFallToTheDefaults) {
    const auto dictionary = Dictionary("Option=\"3\" X1=127 Y1=1152921504606846976");
    _IS_Options read = Shift(false, 9);
    ImageShiftSetOptionsFromTicket(dictionary, &read);
    EXPECT_EQ(std::tuple(read.Option, read.Inches), std::tuple(kPrinterDefault, true));
    EXPECT_EQ(read.X1, 127) << "own units without full precision";
    EXPECT_EQ(read.Y1, INT32_MAX);
}

constexpr const char* kFront = "com.kalmo.print.SpecialPages.FrontCover";
constexpr const char* kBack = "com.kalmo.print.SpecialPages.BackCover";

struct Covers : testing::Test {
    void put(const char* key, const char* cover, CFTypeRef stock) {
        const auto made = Dictionary(cover);
        CFDictionarySetValue(made, CFSTR("Stock"), stock);
        PMTicketSetItem(ticket, kPrintCreator, CFStringMakeConstant(key), made, false);
    }
    OSStatus sync(Boolean direction) { return SyncCovers(ticket, direction, &front, &back); }

    LooseTicket ticket;
    std::unique_ptr<Cover> front, back;
};

TEST_F(Covers, AbsentOnesTakeTheirKeyAway) {
    put(kBack, "", nullptr);
    front = std::make_unique<Cover>();
    for (int twice = 0; twice < 2; ++twice) EXPECT_EQ(sync(kSyncToTicket), noErr);
    back = std::make_unique<Cover>();
    EXPECT_EQ(sync(kSyncToUI), noErr);
    EXPECT_TRUE(*front == Cover());
    EXPECT_EQ(back, nullptr);
}

TEST_F(Covers, BackCoverOfABookletRepeatsTheFront) {
    put(kFront, "SidesImaged=4", Dictionary("Type=2 Color=3"));
    put(kBack, "SidesImaged=x", CFSTR("no paper"));
    sync(kSyncToUI);
    EXPECT_EQ(std::pair(back->sidesImaged(), back->stock().color()), std::pair(1, 1));
    PMTicketSetItem(ticket, kPrintCreator, kBookletLayoutKey, kCFBooleanTrue, false);
    sync(kSyncToUI);
    EXPECT_EQ(std::pair(back->sidesImaged(), back->stock().color()), std::pair(4, 3));
    back->setStartPage(5);
    EXPECT_TRUE(*back == *front);
    PMTicketReleaseItem(ticket, CFStringMakeConstant(kFront));
    EXPECT_EQ(sync(kSyncToUI), noErr);
    EXPECT_EQ(back, nullptr);
}

}  // namespace
}  // namespace kalmo::test
