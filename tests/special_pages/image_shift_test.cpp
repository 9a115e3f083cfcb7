// Image shift on its way to the ticket and back.
#include <gtest/gtest.h>

#include <optional>

#include "settings/ticket.h"
#include "special_pages/image_shift.h"

namespace kalmo::test {
namespace {

_IS_Options Shift(bool inches, SInt32 x1) {
    _IS_Options options;
    ImageShiftInitialize(nullptr, nullptr, &options);
    options.Option = 3;
    options.Inches = inches;
    options.X1 = x1;
    options.X2 = 10;
    options.Y1 = 20;
    options.Y2 = 30;
    return options;
}

std::optional<CFIndex> Number(CFDictionaryRef dictionary, CFStringRef key) {
    CFIndex value = 0;
    if (!GetCFIndexFromCFDictionary(dictionary, key, &value)) return {};
    return value;
}

TEST(ImageShift, FullPrecisionRoundsOnWritingAndCutsOnReading) {
    struct {
        const char* why;
        bool inches;
        SInt32 own;
        CFIndex ticket;
        SInt32 readBack;
    } const rows[] = {
        {"exact", true, 5, 127, 5},
        {"one unit is lost on the way back", true, 1, 25, 0},
        {"rounded up", true, 3, 76, 2},
        {"negative, towards zero", true, -1, -25, 0},
        {"metric", false, 12, 120, 12},
        {"largest", true, INT32_MAX, 54546084634, INT32_MAX},
        {"smallest", false, INT32_MIN, -21474836480, INT32_MIN},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const _IS_Options written = Shift(row.inches, row.own);
        const auto dictionary = Owned<CFDictionaryRef>::Adopt(
            ImageShiftCreateTicketFromOptions(&written, JobContext::exception));
        EXPECT_EQ(Number(dictionary, CFSTR("X1")), row.ticket);
        _IS_Options read;
        ImageShiftSetOptionsFromTicket(dictionary, &read);
        EXPECT_EQ(read.X1, row.readBack);
        EXPECT_EQ(std::tuple(read.X2, read.Y1, read.Y2), std::tuple(10, 20, 30));
    }
}

TEST(ImageShift, WithoutAChoiceThereIsNoDictionary) {
    _IS_Options options = Shift(true, 5);
    options.Option = kPrinterDefault;
    EXPECT_EQ(ImageShiftCreateTicketFromOptions(&options, JobContext::exception), nullptr);
    options = Shift(true, 5);
    options.valid = false;
    EXPECT_EQ(ImageShiftCreateTicketFromOptions(&options, JobContext::exception), nullptr);
}

TEST(ImageShift, ForeignDictionariesFallToTheDefaults) {
    const auto dictionary =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    CFDictionarySetValue(dictionary, CFSTR("Option"), CFSTR("3"));
    WriteTicketValue(dictionary, CFSTR("X1"), 127);
    WriteTicketValue(dictionary, CFSTR("Y1"), CFIndex{1} << 60);
    WriteTicketValue(dictionary, CFSTR("FullPrecision"), 1);  // a number is no boolean
    _IS_Options read = Shift(false, 9);
    ImageShiftSetOptionsFromTicket(dictionary, &read);
    EXPECT_EQ(read.Option, kPrinterDefault);
    EXPECT_TRUE(read.Inches);
    EXPECT_EQ(read.X1, 127) << "own units without full precision";
    EXPECT_EQ(read.Y1, INT32_MAX);

    CFDictionarySetValue(dictionary, CFSTR("FullPrecision"), kCFBooleanTrue);
    WriteTicketValue(dictionary, CFSTR("Inches"), 0);
    ImageShiftSetOptionsFromTicket(dictionary, &read);
    EXPECT_EQ(read.X1, 12) << "a metric 127 is cut";
}

}  // namespace
}  // namespace kalmo::test
