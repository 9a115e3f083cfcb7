#include "settings/user_preferences.h"

#include "settings/dictionary.h"
#include "settings/ppd_file.h"

namespace kalmo::test {
namespace {

std::filesystem::path PreferencesFolder() {
    const auto url = Owned<CFURLRef>::Adopt(CopyUserPreferencesFolder());
    return TakeText(CFURLCopyFileSystemPath(url));
}

unsigned ModeOf(const std::filesystem::path& path) {
    return static_cast<unsigned>(status(path).permissions());
}

Owned<CFMutableDictionaryRef> Read(CFStringRef name) {
    return Owned<CFMutableDictionaryRef>::Adopt(CopyUserPreferences(name));
}

TEST(UserPreferences, AreWrittenForTheUserAloneAndReadBackMutable) {
    const auto written = Read(CFSTR("notes.plist"));
    EXPECT_EQ(CFDictionaryGetCount(written), 0);
    CFDictionarySetValue(CFDictionaryGetDictionaryOrCreate(written, CFSTR("in")), CFSTR("a"),
                         kCFBooleanTrue);
    ASSERT_TRUE(WriteUserPreferences(CFSTR("notes.plist"), written));
    EXPECT_EQ(ModeOf(PreferencesFolder() / "notes.plist"), 0600u);
    const auto store = Owned<CFURLRef>::Adopt(CopyPreferenceFileURL(CFSTR("marks.plist")));
    for (const auto& folder : {PreferencesFolder(), PreferencesFolder() / "Kalmo"})
        EXPECT_EQ(ModeOf(folder), 0700u) << folder;
    const auto read = Read(CFSTR("notes.plist"));
    EXPECT_TRUE(CFEqual(read, written));
    const auto inner = CFDictionaryGetValue(read, CFSTR("in"));
    EXPECT_TRUE(CFDictionaryIsMutable(static_cast<CFDictionaryRef>(inner)));
}

TEST(UserPreferences, UnreadableFileIsAnEmptyDictionary) {
    for (const char* bytes : {"<plist><dict>", "<plist version=\"1.0\"><array/></plist>"}) {
        SCOPED_TRACE(bytes);
        WriteFile(PreferencesFolder() / "broken.plist", bytes);
        const auto read = Read(CFSTR("broken.plist"));
        EXPECT_EQ(CFDictionaryGetCount(read), 0);
        EXPECT_TRUE(CFDictionaryIsMutable(read));
    }
}

}  // namespace
}  // namespace kalmo::test
