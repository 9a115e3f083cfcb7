#include "support/pseudo_text.h"

#include <algorithm>
#include <map>
#include <regex>

namespace kalmo::test {
namespace {

constexpr std::string_view kOpen = "⟦";
constexpr std::string_view kClose = "⟧";

const std::map<char, std::string> kAccented = {
    {'a', "à"}, {'e', "é"}, {'i', "ï"}, {'o', "ö"}, {'u', "ü"}, {'c', "ç"}, {'n', "ñ"}, {'s', "š"},
    {'A', "Å"}, {'E', "É"}, {'I', "Î"}, {'O', "Ö"}, {'U', "Ü"}, {'C', "Ç"}, {'N', "Ñ"}, {'S', "Š"}};

/// Words that lines can break between.
std::string Filling(std::size_t length) {
    std::string filling;
    for (std::size_t added = 0; added < length; ++added) filling += added % 6 == 0 ? ' ' : 'o';
    return filling;
}

bool IsLetter(char character) {
    return std::isalpha(static_cast<unsigned char>(character)) || character & '\x80';
}

void RemoveAll(std::string& text, const std::string& part) {
    for (std::size_t at = 0; !part.empty() && (at = text.find(part)) != std::string::npos;)
        text.replace(at, part.size(), " ");
}

}  // namespace

std::string PseudoText(const std::string& english) {
    static const std::regex kept("%(?:[0-9]+\\$)?(?:@|l?d)|&.");
    const auto accented = [](const std::string& words) {
        std::string text;
        for (const char letter : words) {
            const auto found = kAccented.find(letter);
            text += found == kAccented.end() ? std::string(1, letter) : found->second;
        }
        return text;
    };
    std::string text(kOpen);
    auto from = english.cbegin();
    for (std::sregex_iterator place(english.begin(), english.end(), kept), end; place != end;
         ++place) {
        text += accented({from, (*place)[0].first}) + place->str();
        from = (*place)[0].second;
    }
    text += accented({from, english.cend()});
    return text + Filling((english.size() * 2 + 4) / 5) + std::string(kClose);
}

std::string WordsOutsideTables(std::string shown, const std::vector<std::string>& data) {
    // From the inside out: texts are filled with others.
    for (std::size_t close = 0; (close = shown.find(kClose)) != std::string::npos;) {
        const std::size_t open = shown.rfind(kOpen, close);
        if (open == std::string::npos) return shown;
        shown.replace(open, close + kClose.size() - open, " ");
    }
    for (const std::string& part : data) RemoveAll(shown, part);
    for (const char* sign : {"“", "”", "–", "…", "×", "″", "°", "•", "●"}) RemoveAll(shown, sign);
    return std::ranges::any_of(shown, IsLetter) ? shown : std::string();
}

}  // namespace kalmo::test
