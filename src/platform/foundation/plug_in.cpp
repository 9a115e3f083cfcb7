#include "foundation/plug_in.h"

#include <algorithm>
#include <string>
#include <vector>

#include "foundation/property_list.h"

namespace {

struct Factory {
    Owned<CFUUIDRef> uuid;
    std::string function;
    Owned<CFBundleRef> bundle;
    std::vector<Owned<CFUUIDRef>> types;
    CFIndex instances = 0;
};

std::vector<Factory>& Factories() {
    static auto& factories = *new std::vector<Factory>;
    return factories;
}

Factory* Find(CFUUIDRef uuid) {
    const auto found = std::ranges::find_if(
        Factories(), [uuid](const Factory& factory) { return CFEqual(factory.uuid, uuid); });
    return found == Factories().end() ? nullptr : &*found;
}

bool Makes(const Factory& factory, CFUUIDRef type) {
    return std::ranges::any_of(factory.types,
                               [type](CFUUIDRef other) { return CFEqual(other, type); });
}

template <typename Ref>
Ref OfType(CFTypeRef value, CFTypeID type) {
    return value && CFGetTypeID(value) == type ? static_cast<Ref>(value) : nullptr;
}

Owned<CFUUIDRef> UUIDOf(CFTypeRef text) {
    return Owned<CFUUIDRef>::Adopt(CFUUIDCreateFromString(
        kCFAllocatorDefault, OfType<CFStringRef>(text, CFStringGetTypeID())));
}

std::vector<std::pair<CFTypeRef, CFTypeRef>> EntriesOf(CFBundleRef bundle, CFStringRef key) {
    const auto dictionary = OfType<CFDictionaryRef>(
        CFBundleGetValueForInfoDictionaryKey(bundle, key), CFDictionaryGetTypeID());
    const auto count = static_cast<std::size_t>(CFDictionaryGetCount(dictionary));
    std::vector<CFTypeRef> keys(count);
    std::vector<CFTypeRef> values(count);
    CFDictionaryGetKeysAndValues(dictionary, keys.data(), values.data());
    std::vector<std::pair<CFTypeRef, CFTypeRef>> entries;
    for (std::size_t i = 0; i < count; ++i) entries.emplace_back(keys[i], values[i]);
    return entries;
}

}  // namespace

Boolean CFPlugInRegisterBundle(CFBundleRef bundle) {
    bool registered = false;
    for (const auto& [text, name] : EntriesOf(bundle, CFSTR("CFPlugInFactories"))) {
        const auto uuid = UUIDOf(text);
        const auto function = OfType<CFStringRef>(name, CFStringGetTypeID());
        if (!uuid || !function) continue;
        registered = true;
        if (!Find(uuid)) {
            Factories().push_back(
                {uuid, CFStringToUTF8(function), Owned<CFBundleRef>::Retain(bundle), {}, 0});
        }
    }
    for (const auto& [text, list] : EntriesOf(bundle, CFSTR("CFPlugInTypes"))) {
        const auto type = UUIDOf(text);
        const auto factories = OfType<CFArrayRef>(list, CFArrayGetTypeID());
        for (CFIndex i = 0; type && i < CFArrayGetCount(factories); ++i) {
            const auto uuid = UUIDOf(CFArrayGetValueAtIndex(factories, i));
            Factory* const factory = uuid ? Find(uuid) : nullptr;
            // A bundle may be registered again: its types are then known already.
            if (factory && !Makes(*factory, type)) factory->types.push_back(type);
        }
    }
    return registered;
}

CFArrayRef CFPlugInFindFactoriesForPlugInType(CFUUIDRef type) {
    const CFMutableArrayRef found =
        CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks);
    for (const Factory& factory : Factories()) {
        if (Makes(factory, type)) CFArrayAppendValue(found, factory.uuid.get());
    }
    return found;
}

void* CFPlugInInstanceCreate(CFAllocatorRef allocator, CFUUIDRef factory, CFUUIDRef type) {
    const Factory* const found = Find(factory);
    if (!found) return nullptr;
    const auto name = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(found->function));
    const auto create =
        reinterpret_cast<PDEFactory>(CFBundleGetFunctionPointerForName(found->bundle, name));
    return create ? create(allocator, type) : nullptr;
}

void CFPlugInAddInstanceForFactory(CFUUIDRef factory) {
    if (Factory* const found = Find(factory)) ++found->instances;
}

void CFPlugInRemoveInstanceForFactory(CFUUIDRef factory) {
    Factory* const found = Find(factory);
    if (found && found->instances > 0) --found->instances;
}

CFIndex CFPlugInInstanceCount(CFUUIDRef factory) {
    const Factory* const found = Find(factory);
    return found ? found->instances : 0;
}
