// The pair of covers and the ticket.
#include "special_pages/covers.h"

#include <gtest/gtest.h>

#include "settings/ticket_keys.h"
#include "support/dictionaries.h"

namespace kalmo::test {
namespace {

constexpr const char* kFront = "com.kalmo.print.SpecialPages.FrontCover";
constexpr const char* kBack = "com.kalmo.print.SpecialPages.BackCover";

struct Covers : testing::Test {
    ~Covers() override { PMTicketDispose(ticket); }

    void put(const char* key, const char* cover, CFTypeRef stock) {
        const auto made = Dictionary(cover);
        CFDictionarySetValue(made, CFSTR("Stock"), stock);
        PMTicketSetItem(ticket, kPrintCreator, CFStringMakeConstant(key), made, false);
    }
    OSStatus sync(Boolean direction) { return SyncCovers(ticket, direction, &front, &back); }

    PMTicketRef ticket = PMTicketCreate();
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
