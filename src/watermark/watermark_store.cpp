#include "watermark/watermark_store.h"

#include <cstdio>

#include "kalmo/statuses.h"
#include "settings/dictionary.h"
#include "toolbox/menus.h"

namespace kalmo {
namespace {

#define kListKey CFSTR("WatermarkListEntries")

template <typename Ref>
Ref StoredValue(CFPropertyListRef store, CFStringRef key, CFTypeID type) {
    const auto contents = ValueOfType<CFDictionaryRef>(store, CFDictionaryGetTypeID());
    return ValueOfType<Ref>(CFDictionaryGetValue(contents, key), type);
}

Owned<CFPropertyListRef> Read(CFStringRef storeName) {
    return Owned<CFPropertyListRef>::Adopt(CopyXMLData(storeName));
}

/// An entry or font data there would take the place of the list.
bool IsEntryKey(CFStringRef key) { return key && !CFEqual(key, kListKey); }

void KeepStrings(CFMutableArrayRef names) {
    for (CFIndex i = CFArrayGetCount(names); i-- > 0;)
        if (CFGetTypeID(CFArrayGetValueAtIndex(names, i)) != CFStringGetTypeID())
            CFArrayRemoveValueAtIndex(names, i);
}

void AppendItems(ControlRef control, CFArrayRef names) {
    const MenuRef menu = control ? GetControlPopupMenu(control) : nullptr;
    for (CFIndex i = 0; menu && i < CFArrayGetCount(names); ++i) {
        UInt16 item = 0;
        const auto name = static_cast<CFStringRef>(CFArrayGetValueAtIndex(names, i));
        if (AppendMenuItemTextWithCFString(menu, name, kMenuItemPlain, 0, &item) == noErr)
            SetMenuItemRefCon(menu, item, i);
    }
}

void RemoveFirst(CFMutableArrayRef names, CFStringRef name) {
    const CFIndex at = CFArrayGetFirstIndexOfValue(names, {0, CFArrayGetCount(names)}, name);
    if (at != kCFNotFound) CFArrayRemoveValueAtIndex(names, at);
}

/// A platform error, or 0.
SInt32 Save(CFStringRef storeName, const _WatermarkData& record, WatermarkSave save) {
    const auto name = CopyWatermarkName(record);
    if (!IsEntryKey(name)) return paramErr;
    const auto entry = Owned<CFMutableDictionaryRef>::Adopt(CreateWatermarkEntry(record));
    const StoreFile store(storeName);
    const bool passing = save == WatermarkSave::passing;
    if (passing && CFEqual(CFDictionaryGetValue(store.contents(), name), entry)) return noErr;
    CFDictionarySetValue(store.contents(), name, entry);
    return store.write(passing ? Durability::unsynced : Durability::synced);
}

}  // namespace

bool loadWatermarkList(CFStringRef storeName, ControlRef control, CFMutableArrayRef* names) {
    if (!storeName || !names) return false;
    const auto store = Read(storeName);
    const auto list = StoredValue<CFMutableArrayRef>(store, kListKey, CFArrayGetTypeID());
    *names = Owned<CFMutableArrayRef>::Retain(list).detach();
    if (!list) return false;
    KeepStrings(*names);
    AppendItems(control, *names);
    return true;
}

bool saveWatermarkList(CFStringRef storeName, CFArrayRef names) {
    if (!storeName || !names) return false;
    const StoreFile store(storeName);
    CFDictionarySetValue(store.contents(), kListKey, names);
    return store.write() == noErr;
}

bool saveWatermarkData(CFStringRef storeName, const _WatermarkData& record, WatermarkSave save) {
    if (!storeName) return false;
    const SInt32 error = Save(storeName, record, save);
    if (error == noErr) return true;
    std::fprintf(stderr, "saveWatermarkData: Error %ld writing data to file\n", long{error});
    return false;
}

bool loadWatermarkData(CFStringRef storeName, CFStringRef name, _WatermarkData& record) {
    const auto store = storeName ? Read(storeName) : Owned<CFPropertyListRef>();
    const auto entry = StoredValue<CFDictionaryRef>(store, name, CFDictionaryGetTypeID());
    if (entry)
        ReadWatermarkEntry(record, entry);
    else
        ClearWatermark(record);
    return entry;
}

bool removeWatermarkData(CFStringRef storeName, CFStringRef name) {
    if (!storeName || !IsEntryKey(name)) return false;
    const StoreFile store(storeName);
    if (!store.exists()) return false;
    CFDictionaryRemoveValue(store.contents(), name);
    const auto names =
        StoredValue<CFMutableArrayRef>(store.contents(), kListKey, CFArrayGetTypeID());
    if (names) RemoveFirst(names, name);
    return store.write() == noErr;
}

bool storeFontData(CFStringRef storeName, CFStringRef key, CFDataRef data) {
    if (!storeName || !IsEntryKey(key) || !data) return false;
    const StoreFile store(storeName);
    if (!store.exists()) return false;
    CFDictionarySetValue(store.contents(), key, data);
    return store.write() == noErr;
}

void loadFontData(CFStringRef storeName, CFStringRef key, CFMutableDataRef data) {
    if (!storeName || !data) return;
    const auto store = Read(storeName);
    const auto stored = StoredValue<CFDataRef>(store, key, CFDataGetTypeID());
    if (stored) CFDataAppendBytes(data, CFDataGetBytePtr(stored), CFDataGetLength(stored));
}

}  // namespace kalmo
