// Sessions and tickets: what is stored comes back as it was, under the right number, and goes with
// the session.
#include <gtest/gtest.h>

#include "foundation/number.h"
#include "printing/session.h"
#include "printing/ticket.h"

namespace {

constexpr PMTicketRef kUnknownTicket = 0xFFFFFFF0;

Owned<CFNumberRef> Number(double value) {
    return Owned<CFNumberRef>::Adopt(CFNumberCreate(nullptr, kCFNumberDoubleType, &value));
}

class Tickets : public testing::Test {
protected:
    Owned<PMPrintSession> session = Owned<PMPrintSession>::Adopt(PMSessionCreate());
    PMTicketRef ticket = PMSessionGetTicket(session, kPMPrintSettingsTicket);
};

TEST_F(Tickets, AnswerOnlyForTheTypeThatIsStored) {
    ASSERT_EQ(PMTicketSetSInt32(ticket, CFSTR("K"), CFSTR("one"), 1, false), noErr);
    ASSERT_EQ(PMTicketSetCFBoolean(ticket, CFSTR("K"), CFSTR("true"), kCFBooleanTrue, false),
              noErr);
    CFBooleanRef boolean = nullptr;
    CFNumberRef number = nullptr;
    CFDictionaryRef dictionary = nullptr;
    CFArrayRef array = nullptr;
    CFStringRef string = CFSTR("untouched");
    EXPECT_EQ(PMTicketGetCFBoolean(ticket, CFSTR("one"), &boolean), kPMKeyNotFound);
    EXPECT_EQ(PMTicketGetCFNumber(ticket, CFSTR("true"), &number), kPMKeyNotFound);
    EXPECT_EQ(PMTicketGetCFDictionary(ticket, CFSTR("one"), &dictionary), kPMKeyNotFound);
    EXPECT_EQ(PMTicketGetCFArray(ticket, CFSTR("one"), &array), kPMKeyNotFound);
    EXPECT_EQ(PMTicketGetCFString(ticket, CFSTR("one"), &string), kPMKeyNotFound);
    EXPECT_EQ(string, CFSTR("untouched"));
    EXPECT_EQ(PMTicketGetCFBoolean(ticket, CFSTR("true"), &boolean), noErr);
    EXPECT_EQ(boolean, kCFBooleanTrue);
}

TEST_F(Tickets, GiveThirtyTwoBitNumbersOnlyExactly) {
    SInt32 value = 7;
    ASSERT_EQ(PMTicketSetCFIndex(ticket, nullptr, CFSTR("wide"), CFIndex{1} << 32, false), noErr);
    ASSERT_EQ(PMTicketSetCFNumber(ticket, nullptr, CFSTR("half"), Number(2.5), false), noErr);
    EXPECT_EQ(PMTicketGetSInt32(ticket, CFSTR("wide"), &value), kPMKeyNotFound);
    EXPECT_EQ(PMTicketGetSInt32(ticket, CFSTR("half"), &value), kPMKeyNotFound);
    EXPECT_EQ(value, 7);
    ASSERT_EQ(PMTicketSetCFIndex(ticket, nullptr, CFSTR("wide"), -3, false), noErr);
    EXPECT_EQ(PMTicketGetSInt32(ticket, CFSTR("wide"), &value), noErr);
    EXPECT_EQ(value, -3);
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

TEST_F(Tickets, ReleasedItemsLeaveNothingBehind) {
    ASSERT_EQ(PMTicketSetSInt32(ticket, CFSTR("K"), CFSTR("key"), 1, false), noErr);
    EXPECT_EQ(PMTicketReleaseItem(ticket, CFSTR("key")), noErr);
    EXPECT_EQ(PMTicketReleaseItem(ticket, CFSTR("key")), kPMKeyNotFound);
    EXPECT_FALSE(PMTicketContainsItem(ticket, CFSTR("key")));
    EXPECT_EQ(PMTicketGetItemCreator(ticket, CFSTR("key")), nullptr);
}

TEST_F(Tickets, HoldACopyOfADictionary) {
    const auto mine = Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(nullptr, 0));
    CFDictionarySetValue(mine, CFSTR("Size"), CFSTR("A4"));
    ASSERT_EQ(PMTicketSetCFDictionary(ticket, CFSTR("K"), CFSTR("stock"), mine, false), noErr);
    CFDictionaryRemoveAllValues(mine);
    CFDictionaryRef stored = nullptr;
    ASSERT_EQ(PMTicketGetCFDictionary(ticket, CFSTR("stock"), &stored), noErr);
    EXPECT_EQ(CFDictionaryGetCount(stored), 1);
    // Written over with what it lends itself.
    const CFStringRef creator = PMTicketGetItemCreator(ticket, CFSTR("stock"));
    ASSERT_EQ(PMTicketSetCFDictionary(ticket, creator, CFSTR("stock"), stored, false), noErr);
    ASSERT_EQ(PMTicketGetCFDictionary(ticket, CFSTR("stock"), &stored), noErr);
    EXPECT_EQ(CFDictionaryGetCount(stored), 1);
    EXPECT_EQ(PMTicketSetCFDictionary(ticket, CFSTR("K"), CFSTR("stock"), nullptr, false),
              paramErr);
}

TEST_F(Tickets, LendOnePPDDictionaryThatIsNoItem) {
    CFMutableDictionaryRef first = nullptr, second = nullptr;
    ASSERT_EQ(PMTicketGetPPDDict(ticket, &first), noErr);
    CFDictionarySetValue(first, CFSTR("Duplex"), CFSTR("None"));
    ASSERT_EQ(PMTicketGetPPDDict(ticket, &second), noErr);
    EXPECT_EQ(first, second);
    const auto items = Owned<CFDictionaryRef>::Adopt(PMTicketCopyItems(ticket));
    EXPECT_EQ(CFDictionaryGetCount(items), 0);
}

TEST_F(Tickets, UnknownNumbersAreRefused) {
    for (const PMTicketRef unknown : {kPMNoTicket, kUnknownTicket}) {
        CFTypeRef value = nullptr;
        CFMutableDictionaryRef dictionary = nullptr;
        EXPECT_EQ(PMTicketGetItem(unknown, CFSTR("key"), &value), kPMInvalidTicket);
        EXPECT_EQ(PMTicketSetSInt32(unknown, CFSTR("K"), CFSTR("key"), 1, false), kPMInvalidTicket);
        EXPECT_EQ(PMTicketReleaseItem(unknown, CFSTR("key")), kPMInvalidTicket);
        EXPECT_EQ(PMTicketGetPPDDict(unknown, &dictionary), kPMInvalidTicket);
        EXPECT_EQ(PMTicketCopyItems(unknown), nullptr);
    }
}

TEST_F(Tickets, LiveAsLongAsTheirSessionAndNumbersAreNotUsedAgain) {
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
    EXPECT_EQ(PMTicketGetItem(old, CFSTR("key"), &value), kPMInvalidTicket);
    const PMTicketRef next = PMTicketCreate();
    EXPECT_NE(next, old);
    PMTicketDispose(next);
}

TEST_F(Tickets, AreThirtyTwoBitNumbersInTheSession) {
    CFTypeRef data = nullptr;
    ASSERT_EQ(PMSessionGetDataFromSession(session, kPMPrinterInfoTicket, &data), noErr);
    EXPECT_EQ(CFNumberGetType(static_cast<CFNumberRef>(data)), kCFNumberSInt32Type);
    EXPECT_EQ(PMSessionGetDataFromSession(nullptr, kPMPrinterInfoTicket, &data),
              kPMInvalidPrintSession);
    ASSERT_EQ(PMSessionGetDataFromSession(session, CFSTR("nothing"), &data), noErr);
    EXPECT_EQ(data, nullptr);
    ASSERT_EQ(PMSessionSetDataInSession(session, kPMPrinterInfoTicket, CFSTR("no number")), noErr);
    EXPECT_EQ(PMSessionGetTicket(session, kPMPrinterInfoTicket), kPMNoTicket);
}

TEST_F(Tickets, PrinterTellsWhereItsDescriptionLies) {
    const auto file = Owned<CFURLRef>::Adopt(
        CFURLCreateWithFileSystemPath(nullptr, CFSTR("/tmp/office.ppd"), false));
    const auto with = Owned<PMPrinter>::Adopt(PMPrinterCreate(CFSTR("office"), file));
    const auto without = Owned<PMPrinter>::Adopt(PMPrinterCreate(CFSTR("raw"), nullptr));
    Owned<CFURLRef> url;
    EXPECT_EQ(PMPrinterCopyDescriptionURL(with, kPMPPDDescriptionType, url.adopt()), noErr);
    EXPECT_TRUE(CFEqual(url, file));
    EXPECT_EQ(PMPrinterCopyDescriptionURL(with, CFSTR("Other"), url.adopt()), kPMKeyNotFound);
    EXPECT_EQ(PMPrinterCopyDescriptionURL(without, kPMPPDDescriptionType, url.adopt()),
              kPMKeyNotFound);
    PMPrinter current = with;
    ASSERT_EQ(PMSessionGetCurrentPrinter(session, &current), noErr);
    EXPECT_EQ(current, nullptr);
}

}  // namespace
