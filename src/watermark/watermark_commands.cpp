// What the user does with watermarks: the job's, and those in the user's store.
#include "toolbox/windows.h"
#include "watermark/stored_watermarks.h"
#include "watermark/watermark_editor.h"
#include "watermark/watermark_naming.h"
#include "watermark/watermark_panel.h"
#include "watermark/watermark_store.h"

namespace kalmo {
namespace {

Owned<CFMutableArrayRef> CopyOf(CFArrayRef names) {
    return Owned<CFMutableArrayRef>::Adopt(CFArrayCreateMutableCopy(kCFAllocatorDefault, 0, names));
}

void Choose(_BookletWatermarkContext& context, CFStringRef name, const _WatermarkData& record,
            bool isTheJobsOwn) {
    context.choice.choose(name, record);
    context.isTheJobsOwn = isTheJobsOwn;
    WatermarkChanged(context);
}

/// `before`: the name it has in the store, null for one that is not there. It is the job's
/// watermark also when it could not be saved.
void Keep(_BookletWatermarkContext& context, const _WatermarkData& record, CFStringRef before) {
    const auto name = CopyWatermarkName(record);
    const auto names = CopyNamesWith(context.names, name, before);
    const bool saved = SaveWatermark(kWatermarkStore, record, names);
    if (saved) {
        context.names = names;
        if (before && !CFEqual(name, before)) removeWatermarkData(kWatermarkStore, before);
    } else {
        const NoticeKeys keys{CFSTR("Watermark Not Saved Header"),
                              CFSTR("Watermark Not Saved Message")};
        TellOfStore(context.bundle, keys, kWatermarkStore, name);
    }
    Choose(context, name, record, !saved);
}

bool Edit(_BookletWatermarkContext& context, CFStringRef titleKey, CFArrayRef takenNames,
          _WatermarkData* record) {
    record->pageWidth = context.page.width;
    record->pageHeight = context.page.height;
    return RunModalWatermarkEditor(context.bundle, titleKey, takenNames, record) == kModalOK;
}

}  // namespace

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
    StartWatermark(*record);
    if (Edit(context, CFSTR("New Watermark Title"), context.names, record.get()))
        Keep(context, *record, nullptr);
}

void EditWatermark(_BookletWatermarkContext& context) {
    if (context.choice.isNone()) return;
    WatermarkHolder record;
    context.choice.load(record.get());
    if (!record->textString[0] && !record->filename[0]) StartWatermark(*record);
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
        return TellOfStore(context.bundle, failed, kWatermarkStore, name);
    }
    RemoveWatermarkName(context.names, name);
    ChooseNoWatermark(context);
}

}  // namespace kalmo
