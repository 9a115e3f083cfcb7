#include "settings/dictionary.h"

namespace kalmo {

void CFDictionarySetNumber(CFMutableDictionaryRef dictionary, CFStringRef key, CFNumberType type,
                           const void* value) {
    const auto number = Owned<CFNumberRef>::Adopt(
        value ? CFNumberCreate(kCFAllocatorDefault, type, value) : nullptr);
    if (number) CFDictionarySetValue(dictionary, key, number);
}

bool CFDictionaryGetNumber(CFDictionaryRef dictionary, CFStringRef key, CFNumberType type,
                           void* value) {
    const auto number =
        ValueOfType<CFNumberRef>(CFDictionaryGetValue(dictionary, key), CFNumberGetTypeID());
    return number && value && CFNumberGetValue(number, type, value);
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
    const auto stored = ValueOfType<CFDictionaryRef>(CFDictionaryGetValue(dictionary, key),
                                                     CFDictionaryGetTypeID());
    // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): lends, as Get does
    if (stored && CFDictionaryIsMutable(stored)) return const_cast<CFMutableDictionaryRef>(stored);
    const auto created = Owned<CFMutableDictionaryRef>::Adopt(
        stored ? CFDictionaryCreateMutableCopy(kCFAllocatorDefault, 0, stored)
               : CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    CFDictionarySetValue(dictionary, key, created.get());
    return created;
}

}  // namespace kalmo
