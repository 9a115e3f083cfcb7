#include "settings/ticket.h"

#include <gtest/gtest.h>

#include "settings/dictionary.h"

namespace kalmo {
namespace {

TEST(Ticket, SessionWithoutTheTicketLeavesTheReferenceAlone) {
    const auto session = Owned<PMPrintSession>::Adopt(PMSessionCreate());
    PMTicketRef ticket = 777;
    EXPECT_EQ(GetTicketFromSession(nullptr, kPMPrintSettingsTicket, &ticket),
              kPMInvalidPrintSession);
    EXPECT_EQ(GetTicketFromSession(session, CFSTR("none"), &ticket), noErr);
    PMSessionSetDataInSession(session, CFSTR("text"), CFSTR("12"));
    EXPECT_EQ(GetTicketFromSession(session, CFSTR("text"), &ticket), noErr);
    EXPECT_EQ(ticket, 777u);
    EXPECT_EQ(GetTicketFromSession(session, kPMPrintSettingsTicket, &ticket), noErr);
    EXPECT_EQ(ticket, PMSessionGetTicket(session, kPMPrintSettingsTicket));
}

TEST(Ticket, NumbersAreReadAsIndexAndTellWhenNotExact) {
    const auto values =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    const double fraction = 3.5;
    const SInt32 small = -2;
    WriteTicketValue(values, CFSTR("index"), CFIndex{1} << 40);
    CFDictionarySetNumber(values, CFSTR("fraction"), kCFNumberDoubleType, &fraction);
    CFDictionarySetNumber(values, CFSTR("small"), kCFNumberSInt32Type, &small);
    CFDictionarySetValue(values, CFSTR("true"), kCFBooleanTrue);
    const struct {
        const char* key;
        bool exact;
        CFIndex value;
    } rows[] = {{"index", true, CFIndex{1} << 40},
                {"fraction", false, 3},
                {"small", true, -2},
                {"true", false, 777},
                {"missing", false, 777}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        CFIndex value = 777;
        EXPECT_EQ(GetCFIndexFromCFDictionary(values, CFStringMakeConstant(row.key), &value),
                  row.exact);
        EXPECT_EQ(value, row.value);
    }
    EXPECT_FALSE(GetCFIndexFromCFDictionary(nullptr, CFSTR("index"), nullptr));
}

TEST(Dictionary, InnerDictionaryIsMadeOnceAndKeepsWhatItHolds) {
    const auto outer =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    const CFMutableDictionaryRef inner = CFDictionaryGetDictionaryOrCreate(outer, CFSTR("in"));
    CFDictionarySetCString(inner, CFSTR("name"), "Gr\xFC\xDF", kCFStringEncodingISOLatin1);
    CFDictionarySetCString(inner, CFSTR("bad"), "\xFF", kCFStringEncodingUTF8);
    EXPECT_EQ(CFDictionaryGetDictionaryOrCreate(outer, CFSTR("in")), inner);
    EXPECT_EQ(CFDictionaryGetCount(inner), 1);
    CFDictionarySetValue(
        outer, CFSTR("fixed"),
        Owned<CFDictionaryRef>::Adopt(CFDictionaryCreateCopy(kCFAllocatorDefault, inner)).get());
    const CFMutableDictionaryRef opened = CFDictionaryGetDictionaryOrCreate(outer, CFSTR("fixed"));
    EXPECT_TRUE(CFDictionaryIsMutable(opened));
    EXPECT_TRUE(CFEqual(CFDictionaryGetValue(opened, CFSTR("name")), CFSTR("Grüß")));
}

}  // namespace
}  // namespace kalmo
