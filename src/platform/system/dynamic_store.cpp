#include <arpa/inet.h>
#include <ifaddrs.h>

#include <fstream>
#include <iterator>
#include <memory>

#include "foundation/collections.h"
#include "system/machine_files.h"
#include "system/system.h"

namespace {

constexpr std::string_view kGlobalIPv4 = "State:/Network/Global/IPv4";
constexpr std::string_view kInterfacePrefix = "State:/Network/Interface/";
constexpr std::string_view kInterfaceSuffix = "/IPv4";

CFDictionaryRef CreateDictionary(CFStringRef key, CFTypeRef value) {
    const auto dictionary = CFDictionaryCreateMutable(kCFAllocatorDefault, 1);
    CFDictionarySetValue(dictionary, key, value);
    return dictionary;
}

CFDictionaryRef CreateGlobalIPv4() {
    std::ifstream table("/proc/net/route");
    const std::string primary =
        DefaultRouteInterface(std::string{std::istreambuf_iterator(table), {}});
    if (primary.empty()) return nullptr;
    const auto name = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(primary));
    return CreateDictionary(CFSTR("PrimaryInterface"), name);
}

struct FreeAddresses {
    void operator()(ifaddrs* list) const { freeifaddrs(list); }
};

std::unique_ptr<ifaddrs, FreeAddresses> AllAddresses() {
    ifaddrs* list = nullptr;
    return std::unique_ptr<ifaddrs, FreeAddresses>(getifaddrs(&list) == 0 ? list : nullptr);
}

/// "192.0.2.7" when the entry is an IPv4 address of the interface, else empty.
std::string AddressText(const ifaddrs& entry, std::string_view interface) {
    if (!entry.ifa_addr || entry.ifa_addr->sa_family != AF_INET || interface != entry.ifa_name) {
        return {};
    }
    const auto* address = reinterpret_cast<const sockaddr_in*>(entry.ifa_addr);
    char text[INET_ADDRSTRLEN] = {};
    return inet_ntop(AF_INET, &address->sin_addr, text, sizeof text) ? text : "";
}

CFDictionaryRef CreateInterfaceIPv4(std::string_view interface) {
    const auto addresses = Owned<CFMutableArrayRef>::Adopt(
        CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks));
    const auto list = AllAddresses();
    for (const ifaddrs* entry = list.get(); entry; entry = entry->ifa_next) {
        const std::string text = AddressText(*entry, interface);
        if (text.empty()) continue;
        const auto address = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(text));
        CFArrayAppendValue(addresses, address.get());
    }
    if (CFArrayGetCount(addresses) == 0) return nullptr;
    return CreateDictionary(CFSTR("Addresses"), addresses.get());
}

}  // namespace

CFTypeRef CopyDynamicStoreValue(CFStringRef, CFStringRef key) {
    const std::string text = CFStringToUTF8(key);
    std::string_view rest = text;
    if (rest == kGlobalIPv4) return CreateGlobalIPv4();
    if (!rest.starts_with(kInterfacePrefix) || !rest.ends_with(kInterfaceSuffix) ||
        rest.size() <= kInterfacePrefix.size() + kInterfaceSuffix.size()) {
        return nullptr;
    }
    rest.remove_prefix(kInterfacePrefix.size());
    rest.remove_suffix(kInterfaceSuffix.size());
    return CreateInterfaceIPv4(rest);
}
