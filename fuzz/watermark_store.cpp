// Untrusted store files: whatever stands there, every watermark in it can be read, and a change
// either keeps the other values or leaves the file as it was.
#include "watermark/watermark_store.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "settings/dictionary.h"
#include "settings/user_preferences.h"

using namespace kalmo;

namespace {

/// A folder of this process, gone with it.
struct PrivatePreferences {
    PrivatePreferences() {
        std::string pattern = (std::filesystem::temp_directory_path() / "fuzz-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
    }
    ~PrivatePreferences() { std::filesystem::remove_all(folder); }
    std::filesystem::path folder;
};

void ReadEntry(CFTypeRef key, CFTypeRef, void*) {
    WatermarkHolder record;
    loadWatermarkData(kWatermarkStore, static_cast<CFStringRef>(key), *record);
    if ((record->glyphs == nullptr) != (record->glyphCount == 0)) std::abort();
    const auto entry = Owned<CFDictionaryRef>::Adopt(CreateWatermarkEntry(*record));
    WatermarkHolder again;
    ReadWatermarkEntry(*again, entry);
    const auto written = Owned<CFDictionaryRef>::Adopt(CreateWatermarkEntry(*again));
    if (!CFEqual(entry, written)) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const PrivatePreferences preferences;
    const auto url = Owned<CFURLRef>::Adopt(CopyPreferenceFileURL(kWatermarkStore));
    const auto data =
        Owned<CFDataRef>::Adopt(CFDataCreate(nullptr, bytes, static_cast<CFIndex>(size)));
    if (!CFURLWriteDataUnsynced(url, data, nullptr)) std::abort();
    const auto list = Owned<CFTypeRef>::Adopt(CopyXMLData(kWatermarkStore));
    const auto store = ValueOfType<CFDictionaryRef>(list, CFDictionaryGetTypeID());
    if (store) CFDictionaryApplyFunction(store, ReadEntry, nullptr);
    Owned<CFMutableArrayRef> names;
    loadWatermarkList(kWatermarkStore, nullptr, names.adopt());

    WatermarkHolder record;
    const bool saved = saveWatermarkData(kWatermarkStore, *record, WatermarkSave::passing);
    if (saved != (store || size == 0)) std::abort();
    const auto after = Owned<CFTypeRef>::Adopt(CopyXMLData(kWatermarkStore));
    const auto changed = ValueOfType<CFDictionaryRef>(after, CFDictionaryGetTypeID());
    const CFIndex added = CFDictionaryContainsKey(store, CFSTR("")) ? 0 : 1;
    if (saved && CFDictionaryGetCount(changed) != CFDictionaryGetCount(store) + added) std::abort();
    return 0;
}
