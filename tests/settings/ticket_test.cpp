#include "settings/ticket.h"

#include <gtest/gtest.h>

#include "settings/dictionary.h"

namespace kalmo {
namespace {

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

TEST(Dictionary, InnerDictionaryIsMadeOnceAndKeepsWhatItHolds) {
    const auto outer =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    const CFMutableDictionaryRef inner = CFDictionaryGetDictionaryOrCreate(outer, CFSTR("in"));
    CFDictionarySetCString(inner, CFSTR("name"), "Gr\xFC\xDF", kCFStringEncodingISOLatin1);
    CFDictionarySetValue(
        outer, CFSTR("fixed"),
        Owned<CFDictionaryRef>::Adopt(CFDictionaryCreateCopy(kCFAllocatorDefault, inner)).get());
    const CFMutableDictionaryRef opened = CFDictionaryGetDictionaryOrCreate(outer, CFSTR("fixed"));
    EXPECT_TRUE(CFDictionaryIsMutable(opened));
    EXPECT_TRUE(CFEqual(CFDictionaryGetValue(opened, CFSTR("name")), CFSTR("Grüß")));
}

}  // namespace
}  // namespace kalmo
