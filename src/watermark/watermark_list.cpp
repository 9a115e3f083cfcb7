// The watermarks that a user starts with.
#include <array>

#include "shell/base/texts.h"
#include "watermark/watermark_store.h"

namespace kalmo {
namespace {

/// Where each of the three was drawn when it was made, in points.
struct DefaultRow {
    CFStringRef textKey;
    double xPos, yPos;
};

std::array<DefaultRow, 3> Defaults() {
    return {{{CFSTR("DraftWatermark"), 280.627441, 311.049927},
             {CFSTR("ConfidentialWatermark"), 201.350601, 231.773102},
             {CFSTR("CopyWatermark"), 276.36319, 306.785675}}};
}

void SetDefault(_WatermarkData& record, CFStringRef text, const DefaultRow& row) {
    setDefaultValues(record, 0);
    SetWatermarkText(record.textString, text);
    record.textMode = 1;
    record.fontColorRed = record.fontColorGreen = 0.75F;
    record.xPos = row.xPos;
    record.yPos = row.yPos;
}

bool IsEmptyEntry(CFStringRef storeName, CFStringRef name) {
    WatermarkHolder record;
    loadWatermarkData(storeName, name, *record);
    return !record->textString[0] && !record->filename[0];
}

Owned<CFMutableArrayRef> LoadList(CFStringRef storeName) {
    Owned<CFMutableArrayRef> names;
    loadWatermarkList(storeName, nullptr, names.adopt());
    return names;
}

}  // namespace

void CreateDefaultWatermarks(CFStringRef storeName, CFBundleRef bundle) {
    const auto names = Owned<CFMutableArrayRef>::Adopt(
        CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks));
    for (const DefaultRow& row : Defaults()) {
        const auto text = CopyText(bundle, row.textKey);
        WatermarkHolder record;
        SetDefault(*record, text, row);
        // The list, saved last, brings the whole file to the disk.
        saveWatermarkData(storeName, *record, WatermarkSave::passing);
        CFArrayAppendValue(names, text);
    }
    saveWatermarkList(storeName, names);
}

CFMutableArrayRef CopyWatermarkListAtStart(CFStringRef storeName, CFBundleRef bundle) {
    auto names = LoadList(storeName);
    if (!names) {
        CreateDefaultWatermarks(storeName, bundle);
        names = LoadList(storeName);
    }
    if (!names) return CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks);
    // Only the first is looked at: the others are when somebody chooses them.
    const auto first = static_cast<CFStringRef>(CFArrayGetValueAtIndex(names, 0));
    if (first && IsEmptyEntry(storeName, first)) CFArrayRemoveValueAtIndex(names, 0);
    return names.detach();
}

}  // namespace kalmo
