#include "settings/feature_database.h"

#include <vector>

#include "foundation/number.h"
#include "settings/dictionary.h"
#include "shell/base/plugin_bundle.h"
#include "shell/base/property_list_file.h"

namespace kalmo {
namespace {

Owned<CFDictionaryRef> profile;

CFTypeRef GetProperty(CFDictionaryRef holder, CFStringRef property) {
    return CFDictionaryGetValue(DictionaryInDictionary(holder, CFSTR("Properties")), property);
}

struct Entry {
    CFStringRef name;
    CFDictionaryRef value;
};

/// The entries that are dictionaries, in the dictionary's order; borrowed.
std::vector<Entry> DictionariesIn(CFDictionaryRef dictionary) {
    const auto count = static_cast<std::size_t>(CFDictionaryGetCount(dictionary));
    std::vector<CFTypeRef> keys(count), values(count);
    if (count > 0) CFDictionaryGetKeysAndValues(dictionary, keys.data(), values.data());
    std::vector<Entry> entries;
    for (std::size_t i = 0; i < count; ++i) {
        const auto value = ValueOfType<CFDictionaryRef>(values[i], CFDictionaryGetTypeID());
        if (value) entries.push_back({static_cast<CFStringRef>(keys[i]), value});
    }
    return entries;
}

/// A new array of the dictionaries whose property equals, or with null `value` exists.
CFArrayRef CreateMatches(CFDictionaryRef dictionaries, CFStringRef property, CFTypeRef value) {
    auto matches = Owned<CFMutableArrayRef>::Adopt(
        CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks));
    for (const Entry& entry : DictionariesIn(dictionaries)) {
        const CFTypeRef held = GetProperty(entry.value, property);
        if (held && (!value || CFEqual(held, value))) CFArrayAppendValue(matches, entry.value);
    }
    return matches.detach();
}

CFStringRef GetDefaultKeyword(CFDictionaryRef keywords) {
    for (const Entry& keyword : DictionariesIn(keywords)) {
        const CFBooleanRef isDefault = BooleanInDictionary(keyword.value, CFSTR("Default"));
        if (isDefault && CFBooleanGetValue(isDefault)) return keyword.name;
    }
    return nullptr;
}

/// The default that the feature's syntax of this form names, borrowed, or null.
CFTypeRef GetDefaultOfForm(CFDictionaryRef feature, CFStringRef form) {
    const CFDictionaryRef syntax = KDPGetFeatureSyntax(feature, form);
    return CFEqual(form, CFSTR("Keyword")) ? GetDefaultKeyword(syntax)
                                           : CFDictionaryGetValue(syntax, CFSTR("Default"));
}

}  // namespace
}  // namespace kalmo

using namespace kalmo;

extern "C" {

void KDPInitialize() noexcept {
    const CFBundleRef bundle = GetPDEBundle();
    if (profile || !bundle) return;
    const auto url = Owned<CFURLRef>::Adopt(
        CFBundleCopyResourceURL(bundle, CFSTR("Device Profile"), CFSTR("plist"), nullptr));
    const auto read = Owned<CFPropertyListRef>::Adopt(CreatePropertiesFromXMLFile(url));
    profile =
        Owned<CFDictionaryRef>::Retain(ValueOfType<CFDictionaryRef>(read, CFDictionaryGetTypeID()));
}

void KDPFinalize() noexcept { profile = {}; }

CFDictionaryRef KDPGetFeature(CFStringRef name) noexcept {
    return DictionaryInDictionary(DictionaryInDictionary(profile, CFSTR("Features")), name);
}

// These hand over a new array, though their names, which are fixed, say Get.
// NOLINTBEGIN(clang-analyzer-osx.cocoa.RetainCount)
CFArrayRef KDPGetFeaturesWithPropertyAndValue(CFStringRef property, CFTypeRef value) noexcept {
    return CreateMatches(DictionaryInDictionary(profile, CFSTR("Features")), property, value);
}

CFArrayRef KDPGetFeaturesWithProperty(CFStringRef property) noexcept {
    return KDPGetFeaturesWithPropertyAndValue(property, nullptr);
}

CFArrayRef KDPGetKeywordsWithPropertyAndValue(CFDictionaryRef feature, CFStringRef property,
                                              CFTypeRef value) noexcept {
    const CFDictionaryRef keywords = KDPGetFeatureSyntax(feature, CFSTR("Keyword"));
    return CreateMatches(value ? keywords : nullptr, property, value);
}
// NOLINTEND(clang-analyzer-osx.cocoa.RetainCount)

CFDictionaryRef KDPGetFeatureSyntax(CFDictionaryRef feature, CFStringRef form) noexcept {
    return DictionaryInDictionary(DictionaryInDictionary(feature, CFSTR("Syntax")), form);
}

CFTypeRef KDPGetFeatureProperty(CFDictionaryRef feature, CFStringRef property) noexcept {
    return GetProperty(feature, property);
}

Boolean KDPGetFeatureDefaultValue(CFDictionaryRef feature, CFStringRef* form,
                                  CFTypeRef* value) noexcept {
    for (const CFStringRef each : {CFSTR("Keyword"), CFSTR("Name"), CFSTR("Number")}) {
        if (const CFTypeRef found = GetDefaultOfForm(feature, each)) {
            if (form) *form = each;
            if (value) *value = found;
            return true;
        }
    }
    return false;
}

}  // extern "C"
