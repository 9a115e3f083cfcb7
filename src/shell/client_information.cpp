#include "shell/client_information.h"

#include "settings/dictionary.h"
#include "settings/ticket_keys.h"
#include "system/system.h"

#define kClientInformation "com.kalmo.print.ClientInformation."
#define kControllerInformation "com.kalmo.print.ControllerInformation."

namespace kalmo {
namespace {

const CFStringRef kStoreClient = CFSTR("KPDE");

/// A null value removes the item.
void SetOrRemove(PMTicketRef ticket, CFStringRef key, CFStringRef value) {
    if (value)
        PMTicketSetCFString(ticket, kTicketCreator, key, value, false);
    else
        PMTicketReleaseItem(ticket, key);
}

/// The printer's controller shows the characters U+0020 to U+00FE.
bool IsShownByController(CFStringRef text) {
    for (CFIndex index = 0; index < CFStringGetLength(text); ++index)
        if (const UniChar unit = CFStringGetCharacterAtIndex(text, index);
            unit < 0x20 || unit > 0xFE)
            return false;
    return true;
}

template <typename Ref>
Owned<Ref> CopyStoreValue(CFStringRef key, CFTypeID type) {
    const auto value = Owned<CFTypeRef>::Adopt(CopyDynamicStoreValue(kStoreClient, key));
    return Owned<Ref>::Retain(ValueOfType<Ref>(value, type));
}

/// Null when the machine has no IPv4 address.
Owned<CFStringRef> CopyPrimaryAddress() {
    const auto global = CopyStoreValue<CFDictionaryRef>(CFSTR("State:/Network/Global/IPv4"),
                                                        CFDictionaryGetTypeID());
    const CFStringRef interface = StringInDictionary(global, CFSTR("PrimaryInterface"));
    if (!interface) return {};
    const auto key = Owned<CFStringRef>::Adopt(CFStringCreateWithFormat(
        kCFAllocatorDefault, CFSTR("State:/Network/Interface/%@/IPv4"), interface));
    const auto network = CopyStoreValue<CFDictionaryRef>(key, CFDictionaryGetTypeID());
    const auto addresses = ValueOfType<CFArrayRef>(
        CFDictionaryGetValue(network, CFSTR("Addresses")), CFArrayGetTypeID());
    return Owned<CFStringRef>::Retain(
        ValueOfType<CFStringRef>(CFArrayGetValueAtIndex(addresses, 0), CFStringGetTypeID()));
}

}  // namespace

ClientFacts CollectClientFacts() {
    return {.user = Owned<CFStringRef>::Adopt(CopyConsoleUser()),
            .computer = Owned<CFStringRef>::Adopt(CopyComputerName()),
            .address = CopyPrimaryAddress()};
}

void WriteClientInformation(PMTicketRef ticket, const ClientFacts& facts) {
    PMTicketReleaseItem(ticket, CFSTR("com.kalmo.print.RotateBooklet180Degrees"));
    SetOrRemove(ticket, CFSTR(kControllerInformation "ControllerFamily"), CFSTR("Quillon"));
    SetOrRemove(ticket, CFSTR(kControllerInformation "ControllerVersion"), CFSTR("5.0"));
    SetOrRemove(ticket, CFSTR(kClientInformation "UserName"), facts.user);
    // Guarded by the user, not by the computer's name: kept as it is, controllers show the two
    // together.
    const bool namesComputer = facts.user && facts.computer && IsShownByController(facts.computer);
    SetOrRemove(ticket, CFSTR(kClientInformation "ComputerName"),
                namesComputer ? facts.computer.get() : nullptr);
    SetOrRemove(ticket, CFSTR(kClientInformation "IPAddress"), facts.address);
}

}  // namespace kalmo
