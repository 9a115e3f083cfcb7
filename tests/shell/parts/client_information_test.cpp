// Who prints, as the ticket says it.
#include <gtest/gtest.h>

#include "shell/client_information.h"
#include "support/values.h"

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
    struct {
        const char* why;
        const char *user, *computer, *address;
        const char* expectedComputer;
    } const rows[] = {
        {"all known", "anna", "desk 7", "192.0.2.7", "desk 7"},
        {"last character shown", "anna", "d\u00fe", nullptr, "d\u00fe"},
        {"first one behind it", "anna", "d\u00ff", nullptr, nullptr},
        {"a control character", "anna", "desk\t7", nullptr, nullptr},
        {"an empty name", "anna", "", nullptr, ""},
        {"no user", nullptr, "desk 7", "192.0.2.7", nullptr},
    };
    const PMTicketRef ticket = PMTicketCreate();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        WriteClientInformation(ticket, {Text("before"), Text("before"), Text("before")});
        WriteClientInformation(ticket, {Text(row.user), Text(row.computer), Text(row.address)});
        const auto expect = [&](CFStringRef key, const char* value) {
            EXPECT_EQ(Item(ticket, key), value ? value : "(absent)");
        };
        expect(CFSTR("com.kalmo.print.ClientInformation.UserName"), row.user);
        expect(CFSTR("com.kalmo.print.ClientInformation.ComputerName"), row.expectedComputer);
        expect(CFSTR("com.kalmo.print.ClientInformation.IPAddress"), row.address);
        expect(CFSTR("com.kalmo.print.ControllerInformation.ControllerVersion"), "5.0");
    }
    PMTicketDispose(ticket);
}

}  // namespace
}  // namespace kalmo::test
