// Untrusted lists of recipients: whatever a ticket holds, what was read and written once stays as
// it is, and each recipient is found in its own list.
#include <cstdint>
#include <cstdlib>

#include "fax/fax_recipient_list.h"
#include "foundation/property_list.h"
#include "settings/dictionary.h"

namespace {

using namespace kalmo;
using Ticket = Owned<CFMutableArrayRef>;

/// Only texts, under the nine keys.
void CheckEntry(const void* key, const void* value, void*) {
    if (CFGetTypeID(static_cast<CFTypeRef>(key)) != CFStringGetTypeID()) std::abort();
    if (CFGetTypeID(static_cast<CFTypeRef>(value)) != CFStringGetTypeID()) std::abort();
}

void CheckRecipient(const FaxRecipientList& list, CFIndex index) {
    const FaxRecipient* const recipient = list.recipientAtIndex(index);
    if (!list.containsRecipient(recipient)) std::abort();
    if (!Owned<CFStringRef>::Adopt(DisplayNameFromRecipient(recipient))) std::abort();
    const auto ticket = Owned<CFMutableDictionaryRef>::Adopt(recipient->toTicket());
    if (CFDictionaryGetCount(ticket) > 9) std::abort();
    CFDictionaryApplyFunction(ticket, CheckEntry, nullptr);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto data =
        Owned<CFDataRef>::Adopt(CFDataCreate(nullptr, bytes, static_cast<CFIndex>(size)));
    const auto read = Owned<CFPropertyListRef>::Adopt(
        CFPropertyListCreateFromXMLData(nullptr, data, kCFPropertyListImmutable, nullptr));
    const auto array = ValueOfType<CFArrayRef>(read, CFArrayGetTypeID());
    if (!array) return 0;
    const FaxRecipientList list(array);
    if (list.count() > CFArrayGetCount(array)) std::abort();
    // A list compares each of its recipients with those before it.
    for (CFIndex i = 0; i < list.count() && i < 1000; ++i) CheckRecipient(list, i);
    const auto written = Ticket::Adopt(list.toTicket());
    const FaxRecipientList again(written);
    if (!CFEqual(written, Ticket::Adopt(again.toTicket()))) std::abort();
    return 0;
}
