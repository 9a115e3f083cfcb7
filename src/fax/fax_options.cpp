#include "fax/fax_options.h"

namespace kalmo {
namespace {

void CopyValue(const void* key, const void* value, void* options) {
    CFDictionarySetValue(static_cast<CFMutableDictionaryRef>(options),
                         static_cast<CFStringRef>(key), value);
}

}  // namespace

SInt32 NumberOr(CFDictionaryRef options, CFStringRef key, SInt32 missing) {
    const auto number =
        ValueOfType<CFNumberRef>(CFDictionaryGetValue(options, key), CFNumberGetTypeID());
    SInt32 value = 0;
    return number && CFNumberGetValue(number, kCFNumberSInt32Type, &value) ? value : missing;
}

bool BooleanOr(CFDictionaryRef options, CFStringRef key, bool missing) {
    const CFBooleanRef stored = BooleanInDictionary(options, key);
    return stored ? CFBooleanGetValue(stored) : missing;
}

void SetBoolean(CFMutableDictionaryRef options, CFStringRef key, bool value) {
    CFDictionarySetValue(options, key, value ? kCFBooleanTrue : kCFBooleanFalse);
}

void SetOrRemove(CFMutableDictionaryRef options, CFStringRef key, CFStringRef text) {
    if (CFStringGetLength(text) > 0) {
        CFDictionarySetValue(options, key, text);
    } else {
        CFDictionaryRemoveValue(options, key);
    }
}

void ReplaceOptions(CFMutableDictionaryRef options, CFDictionaryRef contents) {
    CFDictionaryRemoveAllValues(options);
    CFDictionaryApplyFunction(contents, CopyValue, options);
}

}  // namespace kalmo
