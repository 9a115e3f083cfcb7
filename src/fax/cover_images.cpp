#include "fax/cover_images.h"

#include "fax/fax_options.h"
#include "toolbox/windows.h"
#include "watermark/stored_watermarks.h"
#include "watermark/watermark_editor.h"
#include "watermark/watermark_naming.h"
#include "watermark/watermark_store.h"

namespace kalmo {
namespace {

/// A name that is empty could neither be shown nor removed.
Owned<CFMutableArrayRef> StoredNames() {
    Owned<CFMutableArrayRef> names;
    if (!loadWatermarkList(kFaxImageStore, nullptr, names.adopt()))
        return Owned<CFMutableArrayRef>::Adopt(
            CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks));
    RemoveWatermarkName(names, CFSTR(""));
    return names;
}

}  // namespace

CoverImages::CoverImages(CFBundleRef bundle) : bundle_(bundle), names_(StoredNames()) {}

SInt32 CoverImages::item() const {
    const CFIndex index = IndexOfWatermarkName(names_, chosen_);
    return static_cast<SInt32>(index) + kNoCoverImageItem + 1;
}

void CoverImages::choose(CFIndex index) {
    chosen_ =
        Owned<CFStringRef>::Retain(static_cast<CFStringRef>(CFArrayGetValueAtIndex(names_, index)));
}

void CoverImages::choose(CFStringRef name) { choose(IndexOfWatermarkName(names_, name)); }

void CoverImages::makeNew(const CGSize& page) {
    WatermarkHolder record;
    StartWatermark(*record);
    if (runEditor(page, names_, record.get())) keep(*record, nullptr);
}

void CoverImages::edit(const CGSize& page) {
    if (!chosen_) return;
    WatermarkHolder record;
    loadWatermarkData(kFaxImageStore, chosen_, *record);
    if (!record->textString[0] && !record->filename[0]) StartWatermark(*record);
    const auto before = chosen_;
    const auto others =
        Owned<CFMutableArrayRef>::Adopt(CFArrayCreateMutableCopy(kCFAllocatorDefault, 0, names_));
    RemoveWatermarkName(others, before);
    if (runEditor(page, others, record.get())) keep(*record, before);
}

bool CoverImages::runEditor(const CGSize& page, CFArrayRef takenNames,
                            _WatermarkData* record) const {
    record->pageWidth = page.width;
    record->pageHeight = page.height;
    return RunModalWatermarkEditor(bundle_, CFSTR("Image Editor Title"), takenNames, record) ==
           kModalOK;
}

/// The entry of a name before stays in the store: the options of another fax, and those that Cancel
/// brings back, still go by it.
void CoverImages::keep(const _WatermarkData& record, CFStringRef before) {
    const auto name = CopyWatermarkName(record);
    const auto names = CopyNamesWith(names_, name, before);
    if (!SaveWatermark(kFaxImageStore, record, names)) {
        const NoticeKeys keys{CFSTR("Cover Image Not Saved Header"),
                              CFSTR("Cover Image Not Saved Message"), kFaxTextTable};
        return TellOfStore(bundle_, keys, kFaxImageStore, name);
    }
    names_ = names;
    choose(name);
}

void CoverImages::remove() {
    if (!chosen_ || !mayDelete()) return;
    if (!removeFromStore()) {
        const NoticeKeys keys{CFSTR("Cover Image Not Deleted Header"),
                              CFSTR("Cover Image Not Deleted Message"), kFaxTextTable};
        return TellOfStore(bundle_, keys, kFaxImageStore, chosen_);
    }
    RemoveWatermarkName(names_, chosen_);
    chooseNone();
    // Kept as it is: the list that remains goes into the file of the print watermarks. The images'
    // own file has let go of the name already.
    saveWatermarkList(kWatermarkStore, names_);
}

bool CoverImages::mayDelete() const {
    const auto shown = CopyShownName(chosen_);
    const CFTypeRef arguments[] = {shown.get()};
    const NoticeKeys keys{CFSTR("Delete Cover Sheet Header"), CFSTR("Delete Cover Sheet Message"),
                          kFaxTextTable};
    return AskToDestroyWithKeys(bundle_, keys, CFSTR("No Command"), CFSTR("Yes Command"), arguments,
                                1);
}

/// A name that stands twice goes wholly: both stood for the one entry.
bool CoverImages::removeFromStore() const {
    for (CFIndex i = 0; i < CFArrayGetCount(names_); ++i)
        if (CFEqual(CFArrayGetValueAtIndex(names_, i), chosen_) &&
            !removeWatermarkData(kFaxImageStore, chosen_))
            return false;
    return true;
}

}  // namespace kalmo
