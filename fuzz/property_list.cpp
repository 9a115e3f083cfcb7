// Untrusted property lists: whatever is read can be written, and reads back equal.
#include "foundation/property_list.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto data =
        Owned<CFDataRef>::Adopt(CFDataCreate(nullptr, bytes, static_cast<CFIndex>(size)));
    Owned<CFStringRef> error;
    const auto list = Owned<CFPropertyListRef>::Adopt(CFPropertyListCreateFromXMLData(
        nullptr, data, kCFPropertyListMutableContainersAndLeaves, error.adopt()));
    if (!list) {
        if (!error) std::abort();  // a refusal always has a reason
        return 0;
    }
    const auto xml = Owned<CFDataRef>::Adopt(CFPropertyListCreateXMLData(nullptr, list));
    if (!xml) std::abort();
    const auto again = Owned<CFPropertyListRef>::Adopt(
        CFPropertyListCreateFromXMLData(nullptr, xml, kCFPropertyListImmutable, nullptr));
    if (!again) std::abort();
    // Written once more, it is stable: nothing drifts from one dialog to the next.
    const auto second = Owned<CFDataRef>::Adopt(CFPropertyListCreateXMLData(nullptr, again));
    if (!second || !CFEqual(xml, second)) std::abort();
    return 0;
}
