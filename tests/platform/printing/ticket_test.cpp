// Tickets: what is stored comes back as it was, through files too, and goes with the session.
#include "printing/ticket.h"
#include "printing/session.h"
#include "printing/ticket_file.h"
#include "support/test.h"

namespace kalmo::test {
namespace {

/// Numbers that have the same value and yet are another kind tell the kinds apart.
const std::string kTicket = Plist(
    "<dict><key>PrintSettings</key><dict><key>true</key><true/><key>one</key><integer>1</integer>"
    "<key>onePointZero</key><real>1.0</real></dict><key>PPDChoices</key><dict><key>Duplex</key>"
    "<string>None</string><key>odd</key><integer>4</integer></dict><key>PageFormat</key><dict>"
    "<key>orientation</key><integer>2</integer></dict><key>Later</key><dict><key>kept</key>"
    "<false/></dict></dict>");

Owned<CFDictionaryRef> Parsed(const std::string& bytes) {
    return Owned<CFDictionaryRef>::Retain(static_cast<CFDictionaryRef>(ReadPlist(bytes).get()));
}

CFDictionaryRef Settings(const Owned<CFDictionaryRef>& file) {
    return static_cast<CFDictionaryRef>(CFDictionaryGetValue(file, CFSTR("PrintSettings")));
}

struct Tickets : testing::Test {
    Owned<PMPrintSession> session = Owned<PMPrintSession>::Adopt(PMSessionCreate());
    PMTicketRef ticket = PMSessionGetTicket(session, kPMPrintSettingsTicket);
    std::string reason;
};

TEST_F(Tickets, KeepEveryValueAndUnknownKeysOfAFile) {
    ASSERT_TRUE(ReadTicketFile(session, kTicket, &reason)) << reason;
    const auto file = Parsed(WriteTicketFile(session, nullptr));
    EXPECT_TRUE(CFEqual(file, Parsed(kTicket)));
    // Equality of numbers is by value, so the kinds are looked at as well.
    const auto kindOf = [&](CFStringRef key) {
        return CFNumberIsFloatType(
            static_cast<CFNumberRef>(CFDictionaryGetValue(Settings(file), key)));
    };
    EXPECT_EQ(CFDictionaryGetValue(Settings(file), CFSTR("true")), kCFBooleanTrue);
    EXPECT_FALSE(kindOf(CFSTR("one")));
    EXPECT_TRUE(kindOf(CFSTR("onePointZero")));
}

TEST_F(Tickets, GiveWayToThoseOfAFile) {
    CFMutableDictionaryRef choices = nullptr;
    ASSERT_EQ(PMTicketGetPPDDict(ticket, &choices), noErr);
    CFDictionarySetValue(choices, CFSTR("Old"), CFSTR("Choice"));
    ASSERT_EQ(PMTicketSetSInt32(ticket, CFSTR("K"), CFSTR("old"), 1, true), noErr);
    ASSERT_TRUE(ReadTicketFile(session, kTicket, &reason));
    EXPECT_FALSE(PMTicketContainsItem(ticket, CFSTR("old")));
    EXPECT_EQ(PMTicketSetSInt32(ticket, CFSTR("K"), CFSTR("old"), 2, false), noErr);
    // Whoever was lent the PPD dictionary sees the new choices in it.
    EXPECT_FALSE(CFDictionaryContainsKey(choices, CFSTR("Old")));
    EXPECT_TRUE(CFEqual(CFDictionaryGetValue(choices, CFSTR("Duplex")), CFSTR("None")));
    // Keys of an earlier file do not get into a later one.
    ASSERT_TRUE(ReadTicketFile(session, Plist("<dict/>"), &reason)) << reason;
    EXPECT_EQ(WriteTicketFile(session, nullptr).find("Later"), std::string::npos);
    EXPECT_EQ(CFDictionaryGetCount(choices), 0);
}

TEST_F(Tickets, StayWhenAFileIsRefusedInOneLine) {
    ASSERT_TRUE(ReadTicketFile(session, kTicket, &reason));
    const std::string before = WriteTicketFile(session, nullptr);
    const std::size_t alive = CFLiveValueCount();
    const std::tuple<const char*, std::string> kRows[] = {
        {"cut short", kTicket.substr(0, kTicket.size() / 2)},
        {"an array", Plist("<array/>")},
        {"choices that are an array", Plist("<dict><key>PPDChoices</key><array/></dict>")},
        {"page format that is a number", Plist("<dict><key>PrintSettings</key><dict/>"
                                               "<key>PageFormat</key><integer>1</integer></dict>")},
    };
    for (const auto& [why, bytes] : kRows) {
        SCOPED_TRACE(why);
        reason.clear();
        EXPECT_FALSE(ReadTicketFile(session, bytes, &reason));
        EXPECT_FALSE(reason.empty());
        EXPECT_EQ(reason.find('\n'), std::string::npos);
        EXPECT_EQ(WriteTicketFile(session, nullptr), before);
    }
    EXPECT_EQ(CFLiveValueCount(), alive);
}

TEST_F(Tickets, AnswerOnlyForTheTypeThatIsStored) {
    PMTicketSetSInt32(ticket, CFSTR("K"), CFSTR("one"), 1, false);
    PMTicketSetCFBoolean(ticket, CFSTR("K"), CFSTR("true"), kCFBooleanTrue, false);
    CFBooleanRef boolean = nullptr;
    CFDictionaryRef dictionary = nullptr;
    SInt32 value = 0;
    EXPECT_EQ(PMTicketGetCFBoolean(ticket, CFSTR("one"), &boolean), kPMKeyNotFound);
    EXPECT_EQ(PMTicketGetCFDictionary(ticket, CFSTR("one"), &dictionary), kPMKeyNotFound);
    EXPECT_EQ(PMTicketGetSInt32(ticket, CFSTR("true"), &value), kPMKeyNotFound);
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
        ASSERT_EQ(PMTicketSetSInt32(old, CFSTR("K"), CFSTR("key"), 1, true), noErr);
    }
    EXPECT_EQ(CFLiveValueCount(), alive);
    CFTypeRef value = nullptr;
    const LooseTicket next;
    for (const PMTicketRef unknown : {old, kPMNoTicket})
        EXPECT_EQ(PMTicketGetItem(unknown, CFSTR("key"), &value), kPMInvalidTicket);
}

}  // namespace
}  // namespace kalmo::test
