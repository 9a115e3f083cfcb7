#include "settings/dictionary.h"

namespace kalmo {

namespace {

template <typename Ref>
Ref Find(CFDictionaryRef dictionary, CFStringRef key, CFTypeID type) {
    return ValueOfType<Ref>(CFDictionaryGetValue(dictionary, key), type);
}

}  // namespace

void CFDictionarySetNumber(CFMutableDictionaryRef dictionary, CFStringRef key, CFNumberType type,
                           const void* value) {
    const auto number = Owned<CFNumberRef>::Adopt(
        value ? CFNumberCreate(kCFAllocatorDefault, type, value) : nullptr);
    if (number) CFDictionarySetValue(dictionary, key, number);
}

bool CFDictionaryGetNumber(CFDictionaryRef dictionary, CFStringRef key, CFNumberType type,
                           void* value) {
    const auto number = Find<CFNumberRef>(dictionary, key, CFNumberGetTypeID());
    return number && value && CFNumberGetValue(number, type, value);
}

Owned<CFNumberRef> CreateNumber(SInt32 value) {
    return Owned<CFNumberRef>::Adopt(
        CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt32Type, &value));
}

CFStringRef StringInDictionary(CFDictionaryRef dictionary, CFStringRef key) {
    return Find<CFStringRef>(dictionary, key, CFStringGetTypeID());
}

CFDictionaryRef DictionaryInDictionary(CFDictionaryRef dictionary, CFStringRef key) {
    return Find<CFDictionaryRef>(dictionary, key, CFDictionaryGetTypeID());
}

CFBooleanRef BooleanInDictionary(CFDictionaryRef dictionary, CFStringRef key) {
    return Find<CFBooleanRef>(dictionary, key, CFBooleanGetTypeID());
}

void CFDictionarySetCString(CFMutableDictionaryRef dictionary, CFStringRef key, const char* text,
                            CFStringEncoding encoding) {
    const auto string = Owned<CFStringRef>::Adopt(
        text ? CFStringCreateWithCString(kCFAllocatorDefault, text, encoding) : nullptr);
    if (string) CFDictionarySetValue(dictionary, key, string);
}

CFMutableDictionaryRef CFDictionaryGetDictionaryOrCreate(CFMutableDictionaryRef dictionary,
                                                         CFStringRef key) {
    if (!dictionary || !key || !CFDictionaryIsMutable(dictionary)) return nullptr;
    const CFDictionaryRef stored = DictionaryInDictionary(dictionary, key);
    // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): lends, as Get does
    if (stored && CFDictionaryIsMutable(stored)) return const_cast<CFMutableDictionaryRef>(stored);
    const auto created = Owned<CFMutableDictionaryRef>::Adopt(
        stored ? CFDictionaryCreateMutableCopy(kCFAllocatorDefault, 0, stored)
               : CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    CFDictionarySetValue(dictionary, key, created.get());
    return created;
}

}  // namespace kalmo
