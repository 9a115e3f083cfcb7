#include "graphics/font_names.h"

#include <algorithm>

namespace kalmo::graphics {
namespace {

bool IsCapital(char letter) { return letter >= 'A' && letter <= 'Z'; }
bool IsSmall(char letter) { return letter >= 'a' && letter <= 'z'; }

bool Tells(std::string_view style, std::initializer_list<std::string_view> words) {
    return std::ranges::any_of(words, [&](auto word) { return style.find(word) != style.npos; });
}

std::string_view WithoutMakersMark(std::string_view family) {
    for (const std::string_view mark : {"PSMT", "MT", "PS"}) {
        if (family.size() > mark.size() && family.ends_with(mark)) {
            return family.substr(0, family.size() - mark.size());
        }
    }
    return family;
}

/// A capital behind a small letter begins a word.
std::string WordsApart(std::string_view family) {
    std::string words;
    for (const char letter : family) {
        if (!words.empty() && IsCapital(letter) && IsSmall(words.back())) words += ' ';
        words += letter;
    }
    return words;
}

}  // namespace

FontNameParts PartsOfPostScriptName(std::string_view name) {
    const std::size_t hyphen = name.find('-');
    const std::string_view style = hyphen == name.npos ? "" : name.substr(hyphen + 1);
    return {WordsApart(WithoutMakersMark(name.substr(0, hyphen))),
            Tells(style, {"Bold", "Black", "Heavy"}), Tells(style, {"Italic", "Oblique"})};
}

}  // namespace kalmo::graphics
