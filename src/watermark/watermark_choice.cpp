#include "watermark/watermark_choice.h"

#include <array>

#include "settings/dictionary.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"

#define kWatermarkKey CFSTR("com.kalmo.print.Watermark")
#define kNameKey CFSTR("Name")
#define kRecordKey CFSTR("Record")
#define kLayerKey CFSTR("Layer")
#define kPagesKey CFSTR("Pages")
#define kDrawingKey CFSTR("Drawing")
#define kPageWidthKey CFSTR("PageWidth")
#define kPageHeightKey CFSTR("PageHeight")

namespace kalmo {
namespace {

double Length(CFDictionaryRef settings, CFStringRef key) {
    double length = 0;
    CFDictionaryGetNumber(settings, key, kCFNumberDoubleType, &length);
    return length;
}

using Entry = Owned<CFMutableDictionaryRef>;

/// Keys of a record that a drawing changes, and no user.
std::array<CFStringRef, 4> LayoutKeys() {
    return {CFSTR("glyphs"), CFSTR("glyphCount"), CFSTR("xPos"), CFSTR("yPos")};
}

Entry WithoutLayout(const _WatermarkData& record) {
    auto entry = Entry::Adopt(CreateWatermarkEntry(record));
    for (const CFStringRef key : LayoutKeys()) CFDictionaryRemoveValue(entry, key);
    return entry;
}

}  // namespace

bool WatermarkChoice::read(PMTicketRef ticket) {
    CFDictionaryRef found = nullptr;
    WatermarkChoice read;
    if (PMTicketGetCFDictionary(ticket, kWatermarkKey, &found) == noErr)
        read.settings_ = Entry::Adopt(CFDictionaryCreateMutableCopy(kCFAllocatorDefault, 0, found));
    if (!read.name() || CFStringGetLength(read.name()) == 0 || !read.record()) read.clear();
    if (isSameAs(read)) return false;
    *this = std::move(read);
    return true;
}

bool WatermarkChoice::isSameAs(const WatermarkChoice& other) const {
    if (isNone() || other.isNone()) return isNone() == other.isNone();
    WatermarkHolder others;
    other.load(others.get());
    return CFEqual(name(), other.name()) && layer() == other.layer() && pages() == other.pages() &&
           isDrawnAs(*others);
}

OSStatus WatermarkChoice::write(PMTicketRef ticket) const {
    if (isNone()) {
        PMTicketReleaseItem(ticket, kWatermarkKey);
        return noErr;
    }
    return PMTicketSetCFDictionary(ticket, kPrintingManagerCreator, kWatermarkKey, settings_,
                                   false);
}

void WatermarkChoice::clear() { settings_ = {}; }

void WatermarkChoice::choose(CFStringRef name, const _WatermarkData& record) {
    const SInt32 layerBefore = layer(), pagesBefore = pages();
    settings_ = Entry::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    CFDictionarySetValue(settings_, kNameKey, name);
    CFDictionarySetValue(settings_, kRecordKey, Entry::Adopt(CreateWatermarkEntry(record)));
    WriteTicketValue(settings_, kLayerKey, layerBefore);
    WriteTicketValue(settings_, kPagesKey, pagesBefore);
}

CFStringRef WatermarkChoice::name() const {
    return ValueOfType<CFStringRef>(CFDictionaryGetValue(settings_, kNameKey), CFStringGetTypeID());
}

CFDictionaryRef WatermarkChoice::record() const {
    return ValueOfType<CFDictionaryRef>(CFDictionaryGetValue(settings_, kRecordKey),
                                        CFDictionaryGetTypeID());
}

/// The least where the ticket says nothing or something else.
SInt32 WatermarkChoice::number(CFStringRef key, SInt32 least, SInt32 most) const {
    const SInt32 value = SInt32InDictionary(settings_, key).value_or(least);
    return value < least || value > most ? least : value;
}

SInt32 WatermarkChoice::layer() const {
    return number(kLayerKey, kWatermarkBackground, kWatermarkForeground);
}

SInt32 WatermarkChoice::pages() const {
    return number(kPagesKey, kWatermarkOnAllPages, kWatermarkOnPage1Only);
}

void WatermarkChoice::setOption(SInt32 value) {
    if (isNone() || value < kWatermarkBackground || value > kWatermarkOnPage1Only) return;
    WriteTicketValue(settings_, value < kWatermarkOnAllPages ? kLayerKey : kPagesKey, value);
}

void WatermarkChoice::load(_WatermarkData* record) const {
    ClearWatermark(*record);
    if (isNone()) return;
    ReadWatermarkEntry(*record, this->record());
    record->textMode = record->textString[0] ? 1 : 0;
}

bool WatermarkChoice::lacksDrawing(const CGSize& page) const {
    const auto drawing =
        ValueOfType<CFDataRef>(CFDictionaryGetValue(settings_, kDrawingKey), CFDataGetTypeID());
    return !isNone() && (!drawing || CFDataGetLength(drawing) == 0 ||
                         Length(settings_, kPageWidthKey) != page.width ||
                         Length(settings_, kPageHeightKey) != page.height);
}

void WatermarkChoice::setDrawing(CFDataRef drawing, const CGSize& page,
                                 const _WatermarkData& drawn) {
    if (isNone() || !drawing) return;
    keepLayout(drawn);
    CFDictionarySetValue(settings_, kDrawingKey, drawing);
    CFDictionarySetNumber(settings_, kPageWidthKey, kCFNumberDoubleType, &page.width);
    CFDictionarySetNumber(settings_, kPageHeightKey, kCFNumberDoubleType, &page.height);
}

bool WatermarkChoice::isDrawnAs(const _WatermarkData& drawn) const {
    if (isNone()) return false;
    // By way of a record: what the ticket's own lacks or has besides must not count.
    WatermarkHolder chosen;
    load(chosen.get());
    return CFEqual(WithoutLayout(*chosen), WithoutLayout(drawn));
}

void WatermarkChoice::keepLayout(const _WatermarkData& drawn) {
    if (isNone()) return;
    const auto entry = Entry::Adopt(CreateWatermarkEntry(drawn));
    const auto kept = Entry::Adopt(CFDictionaryCreateMutableCopy(kCFAllocatorDefault, 0, record()));
    for (const CFStringRef key : LayoutKeys()) {
        const CFTypeRef value = CFDictionaryGetValue(entry, key);
        value ? CFDictionarySetValue(kept, key, value) : CFDictionaryRemoveValue(kept, key);
    }
    CFDictionarySetValue(settings_, kRecordKey, kept);
}

}  // namespace kalmo
