#include "foundation/string.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <functional>
#include <mutex>
#include <unordered_map>

#include "foundation/collections.h"
#include "foundation/string_private.h"

namespace kalmo::foundation {
namespace {

const CFStringObject* Text(const Object* object) {
    return static_cast<const CFStringObject*>(object);
}

}  // namespace

const TypeRecord kStringType{
    "string", [](const Object* a, const Object* b) { return Text(a)->text == Text(b)->text; },
    [](const Object* value) { return std::hash<std::u16string>{}(Text(value)->text); },
    [](const Object* value) { return UTF8FromUTF16(Text(value)->text); }};

std::u16string UTF16FromUTF8(std::string_view utf8) {
    std::u16string text;
    text.reserve(utf8.size());
    const auto length = static_cast<int32_t>(utf8.size());
    for (int32_t at = 0; at < length;) {
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(utf8.data(), at, length, character);
        if (character > 0xFFFF) {
            text += static_cast<char16_t>(U16_LEAD(character));
            text += static_cast<char16_t>(U16_TRAIL(character));
        } else {
            text += static_cast<char16_t>(character);
        }
    }
    return text;
}

std::string UTF8FromUTF16(std::u16string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    const auto length = static_cast<int32_t>(text.size());
    for (int32_t at = 0; at < length;) {
        UChar32 character = 0;
        U16_NEXT_OR_FFFD(text.data(), at, length, character);
        char bytes[U8_MAX_LENGTH];
        int32_t count = 0;
        U8_APPEND_UNSAFE(bytes, count, character);
        utf8.append(bytes, static_cast<std::size_t>(count));
    }
    return utf8;
}

CFStringObject* MakeString(std::u16string text) {
    return new CFStringObject(std::move(text), false);
}

}  // namespace kalmo::foundation

using kalmo::foundation::As;
using kalmo::foundation::kStringType;
using kalmo::foundation::MakeString;
using kalmo::foundation::UTF16FromUTF8;
using kalmo::foundation::UTF8FromUTF16;

CFStringObject::CFStringObject(std::u16string characters, bool isMutable)
    : Object(kStringType), text(std::move(characters)), mutableText(isMutable) {}

namespace {

const std::u16string kEmpty;

/// The characters; none for null and for what is no string.
const std::u16string& TextOf(CFTypeRef value) {
    const auto* const string = As<CFStringObject>(value, kStringType);
    return string ? string->text : kEmpty;
}

/// The part of the range that lies in a text of `length` units.
CFRange Clamped(CFRange range, CFIndex length) {
    const CFIndex start = std::clamp<CFIndex>(range.location, 0, length);
    return {start, std::clamp<CFIndex>(range.length, 0, length - start)};
}

bool EqualUnits(std::u16string_view left, std::u16string_view right, CFStringCompareFlags flags) {
    if (!(flags & kCFCompareCaseInsensitive)) return left == right;
    return u_strCaseCompare(left.data(), static_cast<int32_t>(left.size()), right.data(),
                            static_cast<int32_t>(right.size()), U_FOLD_CASE_DEFAULT,
                            std::array<UErrorCode, 1>{U_ZERO_ERROR}.data()) == 0;
}

}  // namespace

CFTypeID CFStringGetTypeID() { return kalmo::foundation::IdOf(kStringType); }

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* characters, CFIndex count) {
    if (!characters || count < 0) return nullptr;
    return MakeString({characters, static_cast<std::size_t>(count)});
}

CFStringRef CFStringCreateFromUTF8(std::string_view utf8) {
    return MakeString(UTF16FromUTF8(utf8));
}

std::string CFStringToUTF8(CFStringRef string) { return UTF8FromUTF16(TextOf(string)); }

CFStringRef CFStringMakeConstant(const char* utf8) {
    static std::mutex mutex;
    // Never destroyed: constants outlive every static object that holds one.
    static auto& constants = *new std::unordered_map<std::string, CFStringObject*>;
    const std::lock_guard lock(mutex);
    CFStringObject*& constant = constants[utf8];
    if (!constant) {
        constant = MakeString(UTF16FromUTF8(utf8));
        constant->makeImmortal();
    }
    return constant;
}

CFStringRef CFStringCreateCopy(CFAllocatorRef, CFStringRef string) {
    if (!string) return nullptr;
    if (!string->mutableText) return static_cast<CFStringRef>(CFRetain(string));
    return MakeString(TextOf(string));
}

CFMutableStringRef CFStringCreateMutable(CFAllocatorRef, CFIndex) {
    return new CFStringObject({}, true);
}

CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef, CFIndex, CFStringRef string) {
    return string ? new CFStringObject(TextOf(string), true) : nullptr;
}

CFStringRef CFStringCreateWithSubstring(CFAllocatorRef, CFStringRef string, CFRange range) {
    if (!string) return nullptr;
    const CFRange inside = Clamped(range, CFStringGetLength(string));
    return MakeString(TextOf(string).substr(static_cast<std::size_t>(inside.location),
                                            static_cast<std::size_t>(inside.length)));
}

CFStringRef CFStringCreateByCombiningStrings(CFAllocatorRef, CFArrayRef strings,
                                             CFStringRef separator) {
    if (!strings) return nullptr;
    std::u16string joined;
    bool first = true;
    for (CFIndex i = 0; i < CFArrayGetCount(strings); ++i) {
        const auto* const part =
            As<CFStringObject>(CFArrayGetValueAtIndex(strings, i), kStringType);
        if (!part) continue;
        if (!first) joined += TextOf(separator);
        joined += part->text;
        first = false;
    }
    return MakeString(std::move(joined));
}

void CFStringAppend(CFMutableStringRef string, CFStringRef tail) {
    if (string && string->mutableText) string->text += std::u16string(TextOf(tail));
}

void CFStringTrim(CFMutableStringRef string, CFStringRef trimmed) {
    const std::u16string& cut = TextOf(trimmed);
    if (!string || !string->mutableText || cut.empty()) return;
    while (string->text.starts_with(cut)) string->text.erase(0, cut.size());
    while (string->text.ends_with(cut)) string->text.resize(string->text.size() - cut.size());
}

CFIndex CFStringGetLength(CFStringRef string) {
    return static_cast<CFIndex>(TextOf(string).size());
}

UniChar CFStringGetCharacterAtIndex(CFStringRef string, CFIndex index) {
    const std::u16string& text = TextOf(string);
    return index >= 0 && index < static_cast<CFIndex>(text.size())
               ? text[static_cast<std::size_t>(index)]
               : u'\0';
}

void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar* buffer) {
    const CFRange inside = Clamped(range, CFStringGetLength(string));
    if (buffer) {
        TextOf(string).copy(buffer, static_cast<std::size_t>(inside.length),
                            static_cast<std::size_t>(inside.location));
    }
}

CFComparisonResult CFStringCompare(CFStringRef left, CFStringRef right,
                                   CFStringCompareFlags flags) {
    const std::u16string& a = TextOf(left);
    const std::u16string& b = TextOf(right);
    UErrorCode status = U_ZERO_ERROR;
    const int32_t order =
        flags & kCFCompareCaseInsensitive
            ? u_strCaseCompare(a.data(), static_cast<int32_t>(a.size()), b.data(),
                               static_cast<int32_t>(b.size()), U_FOLD_CASE_DEFAULT, &status)
            : a.compare(b);
    if (order == 0) return kCFCompareEqualTo;
    return order < 0 ? kCFCompareLessThan : kCFCompareGreaterThan;
}

Boolean CFStringFindWithOptions(CFStringRef string, CFStringRef sought, CFRange within,
                                CFStringCompareFlags flags, CFRange* found) {
    const std::u16string& pattern = TextOf(sought);
    const CFRange range = Clamped(within, CFStringGetLength(string));
    const auto size = static_cast<CFIndex>(pattern.size());
    const CFIndex last = range.length - size;
    if (pattern.empty() || last < 0) return false;
    const auto part =
        std::u16string_view(TextOf(string)).substr(static_cast<std::size_t>(range.location));
    const bool backwards = flags & kCFCompareBackwards;
    const CFIndex places = flags & kCFCompareAnchored ? 0 : last;
    for (CFIndex i = 0; i <= places; ++i) {
        const CFIndex at = backwards ? last - i : i;
        if (!EqualUnits(part.substr(static_cast<std::size_t>(at), pattern.size()), pattern,
                        flags)) {
            continue;
        }
        if (found) *found = {range.location + at, size};
        return true;
    }
    return false;
}

Boolean CFStringHasPrefix(CFStringRef string, CFStringRef prefix) {
    return string && prefix && TextOf(string).starts_with(TextOf(prefix));
}
