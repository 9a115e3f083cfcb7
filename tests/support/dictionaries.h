// Dictionaries written down in a test: "Size=75 Name=x Only=true Type=unset"; a value in
// quotes is a string.
#pragma once

#include <climits>

#include "support/test.h"

namespace kalmo::test {

inline Owned<CFTypeRef> Value(const std::string& text) {
    if (text == "true" || text == "false")
        return Owned<CFTypeRef>::Retain(text == "true" ? kCFBooleanTrue : kCFBooleanFalse);
    char* end = nullptr;
    const SInt64 number = text == "unset" ? INT32_MIN : std::strtoll(text.c_str(), &end, 10);
    if (text == "unset" || (!text.empty() && !*end))
        return Owned<CFTypeRef>::Adopt(CFNumberCreate(nullptr, kCFNumberCFIndexType, &number));
    const bool quoted = text.starts_with('"');
    return Owned<CFTypeRef>::Adopt(
        CFStringCreateFromUTF8(quoted ? text.substr(1, text.size() - 2) : text));
}

inline Owned<CFMutableDictionaryRef> Dictionary(const std::string& entries) {
    auto made = Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(nullptr, 0));
    std::istringstream words(entries);
    for (std::string key, value; std::getline(words >> std::ws, key, '=') && words >> value;)
        CFDictionarySetValue(made, CFStringMakeConstant(key.c_str()), Value(value));
    return made;
}

}  // namespace kalmo::test
