// Who prints, as the ticket says it.
#include "shell/client_information.h"

#include "support/test.h"

namespace kalmo::test {
namespace {

Owned<CFStringRef> Text(const char* utf8) { return utf8 ? String(utf8) : Owned<CFStringRef>(); }

std::string Item(PMTicketRef ticket, CFStringRef key) {
    CFStringRef text = nullptr;
    if (PMTicketGetCFString(ticket, key, &text) != noErr) return "(absent)";
    EXPECT_TRUE(CFEqual(PMTicketGetItemCreator(ticket, key), CFSTR("K")));
    return CFStringToUTF8(text);
}

TEST(ClientInformation, WhatIsUnknownOrCannotBeShownIsRemoved) {
    const std::tuple<const char*, const char*, const char*, const char*, const char*> rows[] = {
        {"all known", "anna", "desk 7", "192.0.2.7", "desk 7"},
        {"a control character", "anna", "desk\t7", nullptr, nullptr},
        {"no user", nullptr, "desk 7", "192.0.2.7", nullptr},
    };
    const LooseTicket ticket;
    for (const auto& [why, user, computer, address, expectedComputer] : rows) {
        SCOPED_TRACE(why);
        WriteClientInformation(ticket, {Text("before"), Text("before"), Text("before")});
        WriteClientInformation(ticket, {Text(user), Text(computer), Text(address)});
        const auto expect = [&](CFStringRef key, const char* value) {
            EXPECT_EQ(Item(ticket, key), value ? value : "(absent)");
        };
        expect(CFSTR("com.kalmo.print.ClientInformation.UserName"), user);
        expect(CFSTR("com.kalmo.print.ClientInformation.ComputerName"), expectedComputer);
        expect(CFSTR("com.kalmo.print.ClientInformation.IPAddress"), address);
        expect(CFSTR("com.kalmo.print.ControllerInformation.ControllerVersion"), "5.0");
    }
}

}  // namespace
}  // namespace kalmo::test
