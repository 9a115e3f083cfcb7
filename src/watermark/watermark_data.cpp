#include "watermark/watermark_data.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "settings/dictionary.h"

namespace kalmo {
namespace {

/// Every stored field with its key, but the glyphs.
template <typename Record, typename Visitor>
void VisitFields(Record& record, const Visitor& visit) {
    visit(CFSTR("textString"), record.textString);
    visit(CFSTR("filename"), record.filename);
    visit(CFSTR("filePath"), record.filePath);
    visit(CFSTR("fontName"), record.fontName);
    visit(CFSTR("xOffset"), record.xOffset);
    visit(CFSTR("yOffset"), record.yOffset);
    visit(CFSTR("xPos"), record.xPos);
    visit(CFSTR("yPos"), record.yPos);
    visit(CFSTR("angle"), record.angle);
    visit(CFSTR("density"), record.density);
    visit(CFSTR("scale"), record.scale);
    visit(CFSTR("units"), record.units);
    visit(CFSTR("fontSize"), record.fontSize);
    visit(CFSTR("wellColorRed"), record.wellColorRed);
    visit(CFSTR("wellColorGreen"), record.wellColorGreen);
    visit(CFSTR("wellColorBlue"), record.wellColorBlue);
    visit(CFSTR("wellColorAlpha"), record.wellColorAlpha);
    visit(CFSTR("fontColorRed"), record.fontColorRed);
    visit(CFSTR("fontColorGreen"), record.fontColorGreen);
    visit(CFSTR("fontColorBlue"), record.fontColorBlue);
    visit(CFSTR("fontColorAlpha"), record.fontColorAlpha);
}

struct EntryWriter {
    CFMutableDictionaryRef entry;

    void operator()(CFStringRef key, std::span<const char> field) const {
        CFDictionarySetValue(entry, key, CopyWatermarkText(field));
    }
    void operator()(CFStringRef key, float field) const {
        CFDictionarySetNumber(entry, key, kCFNumberFloat32Type, &field);
    }
    void operator()(CFStringRef key, double field) const {
        CFDictionarySetNumber(entry, key, kCFNumberFloat64Type, &field);
    }
    void operator()(CFStringRef key, SInt32 field) const {
        CFDictionarySetNumber(entry, key, kCFNumberSInt32Type, &field);
    }
};

struct EntryReader {
    CFDictionaryRef entry;

    [[nodiscard]] CFNumberRef number(CFStringRef key) const {
        return ValueOfType<CFNumberRef>(CFDictionaryGetValue(entry, key), CFNumberGetTypeID());
    }

    void operator()(CFStringRef key, std::span<char> field) const {
        if (const CFStringRef text = StringInDictionary(entry, key)) SetWatermarkText(field, text);
    }
    template <typename Real>
    requires std::is_floating_point_v<Real>
    void operator()(CFStringRef key, Real& field) const {
        double value = std::nan("");
        CFNumberGetValue(number(key), kCFNumberFloat64Type, &value);
        // Nobody can draw at an infinite place or in no colour.
        if (std::abs(value) <= double{std::numeric_limits<Real>::max()})
            field = static_cast<Real>(value);
    }
    void operator()(CFStringRef key, SInt32& field) const {
        CFNumberGetValue(number(key), kCFNumberSInt32Type, &field);
    }
};

void WriteGlyphs(CFMutableDictionaryRef entry, const _WatermarkData& record) {
    if (!record.glyphs || record.glyphCount <= 0) return;
    CFDictionarySetNumber(entry, CFSTR("glyphCount"), kCFNumberSInt32Type, &record.glyphCount);
    const auto glyphs = Owned<CFDataRef>::Adopt(
        CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(record.glyphs),
                     CFIndex{record.glyphCount} * CFIndex{sizeof(UInt16)}));
    CFDictionarySetValue(entry, CFSTR("glyphs"), glyphs);
}

void ReadGlyphs(_WatermarkData& record, CFDictionaryRef entry) {
    const auto bytes =
        ValueOfType<CFDataRef>(CFDictionaryGetValue(entry, CFSTR("glyphs")), CFDataGetTypeID());
    SInt32 count = -1;
    EntryReader{entry}(CFSTR("glyphCount"), count);
    if (!bytes || CFDataGetLength(bytes) != CFIndex{count} * CFIndex{sizeof(UInt16)}) return;
    std::u16string glyphs(static_cast<std::size_t>(count), u'\0');
    std::copy_n(CFDataGetBytePtr(bytes), CFDataGetLength(bytes),
                reinterpret_cast<UInt8*>(glyphs.data()));
    SetWatermarkGlyphs(record, {reinterpret_cast<const UInt16*>(glyphs.data()), glyphs.size()});
}

}  // namespace

WatermarkHolder::~WatermarkHolder() { SetWatermarkGlyphs(record_, {}); }

void SetWatermarkGlyphs(_WatermarkData& record, std::span<const UInt16> glyphs) {
    UInt16* const kept = glyphs.empty() ? nullptr : new UInt16[glyphs.size()];
    std::ranges::copy(glyphs, kept);
    delete[] record.glyphs;
    record.glyphs = kept;
    record.glyphCount = static_cast<SInt32>(glyphs.size());
}

void ClearWatermark(_WatermarkData& record) {
    SetWatermarkGlyphs(record, {});
    record = {};
}

void setDefaultValues(_WatermarkData& record, SInt32 units) {
    ClearWatermark(record);
    SetWatermarkText(record.fontName, CFSTR("ArialMT"));
    record.fontColorBlue = record.fontColorAlpha = 1;
    record.wellColorBlue = record.wellColorAlpha = 1;
    record.angle = 45;
    record.density = 25;
    record.scale = 100;
    record.units = units;
    record.fontSize = 72;
}

void SetWatermarkText(std::span<char> field, CFStringRef text) {
    const std::string utf8 = CFStringToUTF8(text);
    std::size_t length = std::min(utf8.size(), field.size() - 1);
    const auto continuesCharacter = [&](std::size_t at) {
        return at < utf8.size() && (static_cast<unsigned char>(utf8[at]) & 0xC0) == 0x80;
    };
    while (length > 0 && continuesCharacter(length)) --length;
    std::ranges::fill(std::copy_n(utf8.begin(), length, field.begin()), field.end(), '\0');
}

/// A field that lost its end reads as far as it goes.
Owned<CFStringRef> CopyWatermarkText(std::span<const char> field) {
    return Owned<CFStringRef>::Adopt(
        CFStringCreateFromUTF8({field.data(), strnlen(field.data(), field.size())}));
}

Owned<CFStringRef> CopyWatermarkName(const _WatermarkData& record) {
    return CopyWatermarkText(record.textMode ? record.textString : record.filename);
}

CFMutableDictionaryRef CreateWatermarkEntry(const _WatermarkData& record) {
    const CFMutableDictionaryRef entry = CFDictionaryCreateMutable(kCFAllocatorDefault, 0);
    VisitFields(record, EntryWriter{entry});
    WriteGlyphs(entry, record);
    return entry;
}

void ReadWatermarkEntry(_WatermarkData& record, CFDictionaryRef entry) {
    VisitFields(record, EntryReader{entry});
    ReadGlyphs(record, entry);
}

}  // namespace kalmo
