#include "settings/user_preferences.h"

#include <cstdio>

#include "settings/dictionary.h"
#include "shell/base/property_list_file.h"

namespace kalmo {
namespace {

Owned<CFURLRef> Append(CFURLRef folder, CFStringRef name, Boolean isDirectory) {
    if (!folder || !name) return {};
    return Owned<CFURLRef>::Adopt(
        CFURLCreateCopyAppendingPathComponent(kCFAllocatorDefault, folder, name, isDirectory));
}

Owned<CFURLRef> CopyFileInPreferences(CFStringRef name) {
    return Append(Owned<CFURLRef>::Adopt(CopyUserPreferencesFolder()), name, false);
}

}  // namespace

CFURLRef CopyPreferenceFileURL(CFStringRef name) {
    const auto preferences = Owned<CFURLRef>::Adopt(CopyUserPreferencesFolder());
    const auto folder = Append(preferences, CFSTR("Kalmo"), true);
    if (!folder || !name) return nullptr;
    CFURLMakeFolder(folder);
    return Append(folder, name, false).detach();
}

CFMutableDictionaryRef CopyStoredUserPreferences(CFStringRef name) {
    const auto url = CopyFileInPreferences(name);
    const auto read = Owned<CFTypeRef>::Adopt(CreateMutablePropertiesFromXMLFile(url));
    const auto stored = ValueOfType<CFMutableDictionaryRef>(read, CFDictionaryGetTypeID());
    return Owned<CFMutableDictionaryRef>::Retain(stored).detach();
}

CFMutableDictionaryRef CopyUserPreferences(CFStringRef name) {
    const CFMutableDictionaryRef stored = CopyStoredUserPreferences(name);
    return stored ? stored : CFDictionaryCreateMutable(kCFAllocatorDefault, 0);
}

bool WriteUserPreferences(CFStringRef name, CFDictionaryRef preferences) {
    SInt32 error = 0;
    const auto url = CopyFileInPreferences(name);
    if (WritePropertiesToXMLFile(url, preferences, &error)) return true;
    std::fprintf(stderr, "WriteUserPreferences() failed (%d)\n", error);
    return false;
}

}  // namespace kalmo
