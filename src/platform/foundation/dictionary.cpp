#include <algorithm>

#include "foundation/collections_private.h"

using kalmo::foundation::As;
using kalmo::foundation::kDictionaryType;
using kalmo::foundation::Object;

namespace {

const CFDictionaryObject* Dictionary(const Object* object) {
    return static_cast<const CFDictionaryObject*>(object);
}

bool EqualDictionaries(const Object* left, const Object* right) {
    const CFDictionaryObject* const a = Dictionary(left);
    const CFDictionaryObject* const b = Dictionary(right);
    return a->entries.size() == b->entries.size() &&
           std::ranges::all_of(a->entries, [b](const CFDictionaryObject::Entry& entry) {
               const CFTypeRef other = b->find(entry.key);
               return other && CFEqual(entry.value, other);
           });
}

CFDictionaryObject* Mutable(CFMutableDictionaryRef dictionary) {
    auto* const found = As<CFDictionaryObject>(dictionary, kDictionaryType);
    return found && found->mutableEntries ? found : nullptr;
}

CFDictionaryObject* CopyOf(CFDictionaryRef dictionary, bool isMutable) {
    const auto* const from = As<CFDictionaryObject>(dictionary, kDictionaryType);
    if (!from) return nullptr;
    auto* const copy = new CFDictionaryObject(isMutable);
    for (const auto& [key, value] : from->entries) copy->set(key, value);
    return copy;
}

}  // namespace

const kalmo::foundation::TypeRecord kalmo::foundation::kDictionaryType{
    "dictionary", EqualDictionaries,
    [](const Object* value) { return Dictionary(value)->entries.size(); },
    [](const Object* value) {
        return "dictionary of " + std::to_string(Dictionary(value)->entries.size());
    }};

CFDictionaryObject::CFDictionaryObject(bool isMutable)
    : Object(kDictionaryType), mutableEntries(isMutable) {}

CFTypeRef CFDictionaryObject::find(CFTypeRef key) const {
    const auto found = index.find(key);
    return found == index.end() ? nullptr : entries[found->second].value.get();
}

void CFDictionaryObject::set(CFTypeRef key, CFTypeRef value) {
    if (const auto found = index.find(key); found != index.end()) {
        entries[found->second].value = Owned<CFTypeRef>::Retain(value);
        return;
    }
    entries.push_back({Owned<CFTypeRef>::Retain(key), Owned<CFTypeRef>::Retain(value)});
    index.emplace(key, entries.size() - 1);
}

void CFDictionaryObject::remove(CFTypeRef key) {
    const auto found = index.find(key);
    if (found == index.end()) return;
    const std::size_t at = found->second;
    index.erase(found);
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(at));
    for (auto& [other, place] : index) {
        if (place > at) --place;
    }
}

CFTypeID CFDictionaryGetTypeID() { return kalmo::foundation::IdOf(kDictionaryType); }

CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef, CFIndex) {
    return new CFDictionaryObject(true);
}

CFDictionaryRef CFDictionaryCreateCopy(CFAllocatorRef, CFDictionaryRef dictionary) {
    return CopyOf(dictionary, false);
}

CFMutableDictionaryRef CFDictionaryCreateMutableCopy(CFAllocatorRef, CFIndex,
                                                     CFDictionaryRef dictionary) {
    return CopyOf(dictionary, true);
}

CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary) {
    const auto* const found = As<CFDictionaryObject>(dictionary, kDictionaryType);
    return found ? static_cast<CFIndex>(found->entries.size()) : 0;
}

CFTypeRef CFDictionaryGetValue(CFDictionaryRef dictionary, CFTypeRef key) {
    const auto* const found = As<CFDictionaryObject>(dictionary, kDictionaryType);
    return found && key ? found->find(key) : nullptr;
}

Boolean CFDictionaryContainsKey(CFDictionaryRef dictionary, CFTypeRef key) {
    return CFDictionaryGetValue(dictionary, key) != nullptr;
}

void CFDictionaryGetKeysAndValues(CFDictionaryRef dictionary, CFTypeRef* keys, CFTypeRef* values) {
    const auto* const found = As<CFDictionaryObject>(dictionary, kDictionaryType);
    if (!found) return;
    for (std::size_t i = 0; i < found->entries.size(); ++i) {
        if (keys) keys[i] = found->entries[i].key;
        if (values) values[i] = found->entries[i].value;
    }
}

void CFDictionaryApplyFunction(CFDictionaryRef dictionary, CFDictionaryApplierFunction applier,
                               void* context) {
    const auto* const found = As<CFDictionaryObject>(dictionary, kDictionaryType);
    if (!found || !applier) return;
    // A copy: the applier may change the dictionary.
    const auto entries = found->entries;
    for (const auto& [key, value] : entries) applier(key, value, context);
}

void CFDictionarySetValue(CFMutableDictionaryRef dictionary, CFTypeRef key, CFTypeRef value) {
    auto* const changed = Mutable(dictionary);
    if (changed && key && value) changed->set(key, value);
}

void CFDictionaryRemoveValue(CFMutableDictionaryRef dictionary, CFTypeRef key) {
    auto* const changed = Mutable(dictionary);
    if (changed && key) changed->remove(key);
}

void CFDictionaryRemoveAllValues(CFMutableDictionaryRef dictionary) {
    if (auto* const changed = Mutable(dictionary)) {
        changed->index.clear();
        changed->entries.clear();
    }
}

Boolean CFDictionaryIsMutable(CFDictionaryRef dictionary) {
    const auto* const found = As<CFDictionaryObject>(dictionary, kDictionaryType);
    return found && found->mutableEntries;
}
