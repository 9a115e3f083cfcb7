#include "paper_output/saved_folder.h"

#include <cctype>
#include <optional>
#include <string>
#include <string_view>

namespace kalmo {
namespace {

constexpr std::string_view kRepository = "file:///job-repository/";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

bool IsPlain(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x80 && (std::isalnum(byte) != 0 || character == '-' || character == '_' ||
                           character == '.' || character == '~');
}

void AppendEscaped(std::string& text, char character) {
    const auto byte = static_cast<unsigned char>(character);
    text += '%';
    text += kHexDigits[byte >> 4];
    text += kHexDigits[byte & 15];
}

/// The byte that "%XX" at `at` stands for.
std::optional<char> EscapedAt(std::string_view text, std::size_t at) {
    if (text[at] != '%' || at + 2 >= text.size()) return std::nullopt;
    const auto high = kHexDigits.find(static_cast<char>(std::toupper(text[at + 1])));
    const auto low = kHexDigits.find(static_cast<char>(std::toupper(text[at + 2])));
    if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
    return static_cast<char>(high << 4 | low);
}

std::string Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = EscapedAt(text, at);
        plain += byte.value_or(text[at]);
        if (byte) at += 2;
    }
    return plain;
}

Owned<CFStringRef> Text(std::string_view utf8) {
    return Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(utf8));
}

}  // namespace

Owned<CFStringRef> LocationOfFolder(CFStringRef name) {
    std::string location(kRepository);
    const std::string plain = CFStringToUTF8(name);
    const bool isDots = plain == "." || plain == "..";
    for (const char character : plain) {
        if (IsPlain(character) && !isDots) {
            location += character;
        } else {
            AppendEscaped(location, character);
        }
    }
    return Text(location);
}

Owned<CFStringRef> FolderOfLocation(CFStringRef location) {
    const std::string whole = CFStringToUTF8(location);
    if (!whole.starts_with(kRepository) || whole.size() == kRepository.size())
        return Owned<CFStringRef>::Retain(location);
    return Text(Unescaped(std::string_view(whole).substr(kRepository.size())));
}

}  // namespace kalmo
