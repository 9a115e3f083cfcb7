#include "shell/base/texts.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "foundation/character_set.h"

namespace kalmo {
namespace {

void ReportMissingText(CFStringRef key, CFStringRef table) {
    const std::string tableName = table ? CFStringToUTF8(table) : "Localizable";
    std::fprintf(stderr, "No text in table \"%s\" for key \"%s\"\n", tableName.c_str(),
                 CFStringToUTF8(key).c_str());
}

/// Embeddings, overrides and isolates: they would reorder the words around them as well.
bool TurnsDirection(UniChar character) {
    return (character >= 0x202A && character <= 0x202E) ||
           (character >= 0x2066 && character <= 0x2069);
}

}  // namespace

Owned<CFStringRef> CopyTextIfPresent(CFBundleRef bundle, CFStringRef key, CFStringRef table) {
    if (!bundle || !key) return {};
    const CFStringRef notFound = CFSTR(kStringNotFound);
    auto text =
        Owned<CFStringRef>::Adopt(CFBundleCopyLocalizedString(bundle, key, notFound, table));
    return !text || CFEqual(text, notFound) ? Owned<CFStringRef>() : text;
}

Owned<CFStringRef> CopyText(CFBundleRef bundle, CFStringRef key, CFStringRef table) {
    if (auto text = CopyTextIfPresent(bundle, key, table)) return text;
    ReportMissingText(key, table);
    return Owned<CFStringRef>::Retain(CFSTR(kStringNotFound));
}

Owned<CFStringRef> CopyShortened(CFStringRef text, CFIndex most) {
    const CFIndex length = text ? CFStringGetLength(text) : 0;
    const CFIndex shown = std::min(length, most);
    std::u16string line(static_cast<std::size_t>(shown), u' ');
    if (shown > 0) CFStringGetCharacters(text, {0, shown}, line.data());
    const CFCharacterSetRef controls = CFCharacterSetGetPredefined(kCFCharacterSetControl);
    for (UniChar& character : line)
        if (CFCharacterSetIsCharacterMember(controls, character) || TurnsDirection(character))
            character = u' ';
    if (length > most) line += u'\u2026';
    return Owned<CFStringRef>::Adopt(CFStringCreateWithCharacters(
        kCFAllocatorDefault, line.data(), static_cast<CFIndex>(line.size())));
}

void TextParts::add(CFStringRef text) {
    if (text && CFStringGetLength(text) > 0) CFArrayAppendValue(parts_, text);
}

CFStringRef TextParts::joined(CFStringRef separator) const {
    return CFStringCreateByCombiningStrings(kCFAllocatorDefault, parts_, separator);
}

}  // namespace kalmo
