#include "shell/base/property_list_file.h"

#include "kalmo/statuses.h"

namespace kalmo {
namespace {

CFPropertyListRef CreatePropertiesFromFile(CFURLRef url, CFPropertyListMutability mutability) {
    Owned<CFDataRef> bytes;
    if (!url ||
        !CFURLCreateDataAndPropertiesFromResource(kCFAllocatorDefault, url, bytes.adopt(), nullptr))
        return nullptr;
    return CFPropertyListCreateFromXMLData(kCFAllocatorDefault, bytes, mutability, nullptr);
}

}  // namespace

CFPropertyListRef CreatePropertiesFromXMLFile(CFURLRef url) {
    return CreatePropertiesFromFile(url, kCFPropertyListImmutable);
}

CFPropertyListRef CreateMutablePropertiesFromXMLFile(CFURLRef url) {
    return CreatePropertiesFromFile(url, kCFPropertyListMutableContainersAndLeaves);
}

bool WritePropertiesToXMLFile(CFURLRef url, CFPropertyListRef list, SInt32* error,
                              Durability durability) {
    *error = paramErr;
    if (!url || !list) return false;
    const auto bytes =
        Owned<CFDataRef>::Adopt(CFPropertyListCreateXMLData(kCFAllocatorDefault, list));
    const auto write = durability == Durability::synced ? CFURLWriteDataAndPropertiesToResource
                                                        : CFURLWriteDataUnsynced;
    return bytes && write(url, bytes, error);
}

}  // namespace kalmo
