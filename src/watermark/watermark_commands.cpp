// What the user does with watermarks: the job's, and those in the user's store.
#include <iterator>

#include "foundation/locale.h"
#include "settings/user_preferences.h"
#include "shell/base/notices.h"
#include "toolbox/windows.h"
#include "watermark/watermark_editor.h"
#include "watermark/watermark_naming.h"
#include "watermark/watermark_panel.h"
#include "watermark/watermark_store.h"

namespace kalmo {
namespace {

constexpr CFIndex kNotInList = -1;

CFRange WholeOf(CFArrayRef names) { return {0, CFArrayGetCount(names)}; }

CFIndex IndexOf(CFArrayRef names, CFStringRef name) {
    return name ? CFArrayGetFirstIndexOfValue(names, WholeOf(names), name) : kNotInList;
}

Owned<CFMutableArrayRef> CopyOf(CFArrayRef names) {
    return Owned<CFMutableArrayRef>::Adopt(CFArrayCreateMutableCopy(kCFAllocatorDefault, 0, names));
}

void Choose(_BookletWatermarkContext& context, CFStringRef name, const _WatermarkData& record,
            bool isTheJobsOwn) {
    context.choice.choose(name, record);
    context.isTheJobsOwn = isTheJobsOwn;
    WatermarkChanged(context);
}

/// The file may be what is wrong, so it is named.
void TellNotSaved(const _BookletWatermarkContext& context, const NoticeKeys& keys,
                  CFStringRef name) {
    const auto url = Owned<CFURLRef>::Adopt(CopyPreferenceFileURL(kWatermarkStore));
    const auto file = Owned<CFStringRef>::Adopt(url ? CFURLCopyFileSystemPath(url) : nullptr);
    const auto shown = CopyShownName(name);
    const CFTypeRef arguments[] = {shown.get(), file ? file.get() : kWatermarkStore};
    ShowNoticeWithKeys(context.bundle, keys, arguments, std::size(arguments));
}

/// The entry first: a list never names a watermark that was not saved.
bool Save(const _WatermarkData& record, CFArrayRef names) {
    return saveWatermarkData(kWatermarkStore, record) && saveWatermarkList(kWatermarkStore, names);
}

/// In the place of `before`, or at the end; a name stands once.
Owned<CFMutableArrayRef> NamesWith(CFArrayRef names, CFStringRef name, CFStringRef before) {
    auto changed = CopyOf(names);
    const CFIndex place = IndexOf(changed, before);
    const bool renames = place != kNotInList && !CFEqual(name, before);
    if (renames && IndexOf(changed, name) == kNotInList) {
        CFArraySetValueAtIndex(changed, place, name);
    } else if (renames) {
        CFArrayRemoveValueAtIndex(changed, place);
    } else if (IndexOf(changed, name) == kNotInList) {
        CFArrayAppendValue(changed, name);
    }
    if (renames) RemoveWatermarkName(changed, before);
    return changed;
}

/// `before`: the name it has in the store, null for one that is not there. It is the job's
/// watermark also when it could not be saved.
void Keep(_BookletWatermarkContext& context, const _WatermarkData& record, CFStringRef before) {
    const auto name = CopyWatermarkName(record);
    const auto names = NamesWith(context.names, name, before);
    const bool saved = Save(record, names);
    if (saved) {
        context.names = names;
        if (before && !CFEqual(name, before)) removeWatermarkData(kWatermarkStore, before);
    } else {
        const NoticeKeys keys{CFSTR("Watermark Not Saved Header"),
                              CFSTR("Watermark Not Saved Message")};
        TellNotSaved(context, keys, name);
    }
    Choose(context, name, record, !saved);
}

/// Of the editor's offsets.
SInt32 UsualUnits() {
    constexpr SInt32 kTenthsOfAnInch = 0, kMillimetres = 1;
    return CFLocaleUsesMetricSystem() ? kMillimetres : kTenthsOfAnInch;
}

void StartRecord(_WatermarkData& record) {
    setDefaultValues(record, UsualUnits());
    record.textMode = 1;
}

bool Edit(_BookletWatermarkContext& context, CFStringRef titleKey, CFArrayRef takenNames,
          _WatermarkData* record) {
    record->pageWidth = context.page.width;
    record->pageHeight = context.page.height;
    return RunModalWatermarkEditor(context.bundle, titleKey, takenNames, record) == kModalOK;
}

}  // namespace

void RemoveWatermarkName(CFMutableArrayRef names, CFStringRef name) {
    for (CFIndex index = IndexOf(names, name); index != kNotInList; index = IndexOf(names, name))
        CFArrayRemoveValueAtIndex(names, index);
}

void ChooseWatermark(_BookletWatermarkContext& context, CFIndex index) {
    const auto name = static_cast<CFStringRef>(CFArrayGetValueAtIndex(context.names, index));
    if (!name) return;
    WatermarkHolder record;
    loadWatermarkData(kWatermarkStore, name, *record);
    Choose(context, name, *record, false);
}

void ChooseNoWatermark(_BookletWatermarkContext& context) {
    context.choice.clear();
    WatermarkChanged(context);
}

void ChooseWatermarkOption(_BookletWatermarkContext& context, SInt32 value) {
    context.choice.setOption(value);
    ShowBookletWatermark(context);
}

void NewWatermark(_BookletWatermarkContext& context) {
    WatermarkHolder record;
    StartRecord(*record);
    if (Edit(context, CFSTR("New Watermark Title"), context.names, record.get()))
        Keep(context, *record, nullptr);
}

void EditWatermark(_BookletWatermarkContext& context) {
    if (context.choice.isNone()) return;
    WatermarkHolder record;
    context.choice.load(record.get());
    if (!record->textString[0] && !record->filename[0]) StartRecord(*record);
    // The job's own is a new one to the store: it must not replace the user's of its name unasked.
    const auto before =
        Owned<CFStringRef>::Retain(context.isTheJobsOwn ? nullptr : context.choice.name());
    const auto others = CopyOf(context.names);
    if (before) RemoveWatermarkName(others, before);
    if (Edit(context, CFSTR("Edit Watermark Title"), others, record.get()))
        Keep(context, *record, before);
}

void DeleteWatermark(_BookletWatermarkContext& context) {
    if (context.choice.isNone() || context.isTheJobsOwn) return;
    const auto name = Owned<CFStringRef>::Retain(context.choice.name());
    const auto shown = CopyShownName(name);
    const CFTypeRef arguments[] = {shown.get()};
    const NoticeKeys keys{CFSTR("Delete Watermark Header"), CFSTR("Delete Watermark Message")};
    if (!AskToDestroyWithKeys(context.bundle, keys, CFSTR("Cancel Command"),
                              CFSTR("Delete Watermark Command"), arguments, 1))
        return;
    if (!removeWatermarkData(kWatermarkStore, name)) {
        const NoticeKeys failed{CFSTR("Watermark Not Deleted Header"),
                                CFSTR("Watermark Not Deleted Message")};
        return TellNotSaved(context, failed, name);
    }
    RemoveWatermarkName(context.names, name);
    ChooseNoWatermark(context);
}

}  // namespace kalmo
