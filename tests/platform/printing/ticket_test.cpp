// Sessions and tickets: what is stored comes back as it was, under the right number, and goes with
// the session.
#include <gtest/gtest.h>

#include "foundation/number.h"
#include "printing/session.h"
#include "printing/ticket.h"

namespace {

Owned<CFNumberRef> Number(double value) {
    return Owned<CFNumberRef>::Adopt(CFNumberCreate(nullptr, kCFNumberDoubleType, &value));
}

class Tickets : public testing::Test {
protected:
    Owned<PMPrintSession> session = Owned<PMPrintSession>::Adopt(PMSessionCreate());
    PMTicketRef ticket = PMSessionGetTicket(session, kPMPrintSettingsTicket);
};

TEST_F(Tickets, AnswerOnlyForTheTypeThatIsStored) {
    PMTicketSetSInt32(ticket, CFSTR("K"), CFSTR("one"), 1, false);
    PMTicketSetCFBoolean(ticket, CFSTR("K"), CFSTR("true"), kCFBooleanTrue, false);
    PMTicketSetCFNumber(ticket, CFSTR("K"), CFSTR("half"), Number(2.5), false);
    CFBooleanRef boolean = nullptr;
    CFNumberRef number = nullptr;
    CFDictionaryRef dictionary = nullptr;
    SInt32 value = 7;
    EXPECT_EQ(PMTicketGetCFBoolean(ticket, CFSTR("one"), &boolean), kPMKeyNotFound);
    EXPECT_EQ(PMTicketGetCFNumber(ticket, CFSTR("true"), &number), kPMKeyNotFound);
    EXPECT_EQ(PMTicketGetCFDictionary(ticket, CFSTR("one"), &dictionary), kPMKeyNotFound);
    for (const CFStringRef inexact : {CFSTR("true"), CFSTR("half")})
        EXPECT_EQ(PMTicketGetSInt32(ticket, inexact, &value), kPMKeyNotFound);
    EXPECT_EQ(value, 7);
}

TEST_F(Tickets, LockedItemsKeepTheirValue) {
    const CFStringRef key = CFSTR("locked");
    ASSERT_EQ(PMTicketSetSInt32(ticket, CFSTR("K"), key, 1, true), noErr);
    EXPECT_EQ(PMTicketSetSInt32(ticket, CFSTR("X"), key, 2, false), kPMItemIsLocked);
    EXPECT_EQ(PMTicketReleaseItem(ticket, key), kPMItemIsLocked);
    SInt32 value = 0;
    EXPECT_EQ(PMTicketGetSInt32(ticket, key, &value), noErr);
    EXPECT_EQ(value, 1);
    EXPECT_TRUE(CFEqual(PMTicketGetItemCreator(ticket, key), CFSTR("K")));
}

TEST_F(Tickets, HoldACopyOfADictionary) {
    const auto mine = Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(nullptr, 0));
    CFDictionarySetValue(mine, CFSTR("Size"), CFSTR("A4"));
    CFDictionaryRef stored = mine;
    for (const char* why : {"a copy", "written over with what it lends itself"}) {
        EXPECT_EQ(PMTicketSetCFDictionary(ticket, CFSTR("K"), CFSTR("stock"), stored, false),
                  noErr);
        CFDictionaryRemoveAllValues(mine);
        EXPECT_EQ(PMTicketGetCFDictionary(ticket, CFSTR("stock"), &stored), noErr);
        EXPECT_EQ(CFDictionaryGetCount(stored), 1) << why;
    }
}

TEST_F(Tickets, GoWithTheirSessionAndLeaveTheirNumberUnused) {
    const std::size_t alive = CFLiveValueCount();
    PMTicketRef old = kPMNoTicket;
    {
        const auto other = Owned<PMPrintSession>::Adopt(PMSessionCreate());
        const auto printer = Owned<PMPrinter>::Adopt(PMPrinterCreate(CFSTR("office"), nullptr));
        PMSessionSetCurrentPrinter(other, printer);
        old = PMSessionGetTicket(other, kPMPageFormatTicket);
        ASSERT_EQ(PMTicketSetCFNumber(old, CFSTR("K"), CFSTR("key"), Number(0.5), true), noErr);
        CFMutableDictionaryRef choices = nullptr;
        ASSERT_EQ(PMTicketGetPPDDict(old, &choices), noErr);
    }
    EXPECT_EQ(CFLiveValueCount(), alive);
    CFTypeRef value = nullptr;
    const PMTicketRef next = PMTicketCreate();
    for (const PMTicketRef unknown : {old, kPMNoTicket}) {
        CFMutableDictionaryRef choices = nullptr;
        EXPECT_EQ(PMTicketGetItem(unknown, CFSTR("key"), &value), kPMInvalidTicket);
        EXPECT_EQ(PMTicketSetSInt32(unknown, nullptr, CFSTR("key"), 1, false), kPMInvalidTicket);
        EXPECT_EQ(PMTicketGetPPDDict(unknown, &choices), kPMInvalidTicket);
        EXPECT_EQ(PMTicketCopyItems(unknown), nullptr);
    }
    PMTicketDispose(next);
}

}  // namespace
