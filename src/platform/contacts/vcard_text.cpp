#include "contacts/vcard_text.h"

#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <memory>

namespace contacts {

namespace {

constexpr std::size_t kLongestFold = 75;
constexpr std::size_t kLongestQuotedPrintable = 76;

char UpperOf(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

int DigitValue(char digit) {
    const char upper = UpperOf(digit);
    if (digit >= '0' && digit <= '9') return digit - '0';
    return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}

bool IsASCII(std::string_view bytes) {
    return std::ranges::none_of(bytes, [](char c) { return (c & 0x80) != 0; });
}

bool IsUTF8(std::string_view bytes) {
    const auto length = static_cast<int32_t>(bytes.size());
    for (int32_t at = 0; at < length;) {
        UChar32 character = 0;
        U8_NEXT(bytes.data(), at, length, character);
        if (character < 0) return false;
    }
    return true;
}

std::string FromLatin1(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x80) {
            text += byte;
        } else {
            text += static_cast<char>(0xC0 | code >> 6);
            text += static_cast<char>(0x80 | (code & 0x3F));
        }
    }
    return text;
}

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};

/// Empty when the character set is not known.
std::string Converted(std::string_view bytes, const std::string& characterSet) {
    UErrorCode status = U_ZERO_ERROR;
    // Only what the library has in itself: it would look other names up as files.
    if (ucnv_countAliases(characterSet.c_str(), &status) == 0) return {};
    const std::unique_ptr<UConverter, ConverterCloser> converter(
        ucnv_open(characterSet.c_str(), &status));
    if (U_FAILURE(status)) return {};
    const icu::UnicodeString text(bytes.data(), static_cast<int32_t>(bytes.size()), converter.get(),
                                  status);
    std::string utf8;
    return U_FAILURE(status) ? "" : text.toUTF8String(utf8);
}

bool IsUTF8Name(std::string_view name) {
    return name.empty() || EqualWithoutCase(name, "UTF-8") || EqualWithoutCase(name, "UTF8");
}

std::string Decoded(std::string_view bytes, std::string_view characterSet) {
    if (!IsUTF8Name(characterSet)) {
        std::string text = Converted(bytes, std::string(characterSet));
        if (!text.empty()) return text;
    }
    return IsASCII(bytes) || IsUTF8(bytes) ? std::string(bytes) : FromLatin1(bytes);
}

bool ContinuesCharacter(char byte) { return (byte & 0xC0) == 0x80; }

}  // namespace

std::string Upper(std::string_view text) {
    std::string upper(text);
    std::ranges::transform(upper, upper.begin(), UpperOf);
    return upper;
}

bool EqualWithoutCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::ranges::equal(a, b, std::ranges::equal_to{}, UpperOf, UpperOf);
}

bool StartsWithoutCase(std::string_view text, std::string_view start) {
    return EqualWithoutCase(text.substr(0, start.size()), start);
}

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

std::string UTF8Of(std::string_view bytes, std::string_view characterSet) {
    std::string text = Decoded(bytes, characterSet);
    std::erase(text, '\0');
    return text;
}

std::string FromQuotedPrintable(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '=' && i + 2 < text.size() ? DigitValue(text[i + 1]) : -1;
        const int low = high >= 0 ? DigitValue(text[i + 2]) : -1;
        bytes += low >= 0 ? static_cast<char>(high << 4 | low) : text[i];
        if (low >= 0) i += 2;
    }
    return bytes;
}

std::string ToQuotedPrintable(std::string_view text, std::size_t column, std::string_view lineEnd) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string written;
    for (const char c : text) {
        const bool plain = c > ' ' && c < 0x7F && c != '=';
        // One byte is kept for the soft break itself.
        const std::size_t width = plain ? 1 : 3;
        if (column + width >= kLongestQuotedPrintable) {
            written.append("=").append(lineEnd);
            column = 0;
        }
        column += width;
        const auto code = static_cast<unsigned char>(c);
        if (plain) {
            written += c;
        } else {
            written.append({'=', kDigits[code >> 4], kDigits[code & 15]});
        }
    }
    return written;
}

std::string Unescaped(std::string_view value) {
    std::string text;
    text.reserve(value.size());
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char next = value[i] == '\\' && i + 1 < value.size() ? value[i + 1] : '\0';
        const bool newline = next == 'n' || next == 'N';
        const bool escaped = newline || next == '\\' || next == ',' || next == ';' || next == ':';
        if (escaped) ++i;
        // A value in quoted-printable has its line ends in it.
        const bool pair = value[i] == '\r' && i + 1 < value.size() && value[i + 1] == '\n';
        if (!pair) text += newline || value[i] == '\r' ? '\n' : value[i];
    }
    return text;
}

std::string Escaped(std::string_view text, Version version) {
    const std::string_view special = version == Version::v21 ? "\\;" : "\\;,";
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (pair || text[i] == '\0') continue;  // the other half says it
        if (text[i] == '\n' || text[i] == '\r') {
            value += version == Version::v21 ? "\r\n" : "\\n";
        } else {
            if (special.find(text[i]) != std::string_view::npos) value += '\\';
            value += text[i];
        }
    }
    return value;
}

std::vector<std::string> SplitAt(char separator, std::string_view value) {
    std::vector<std::string> parts(1);
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == separator) {
            parts.emplace_back();
            continue;
        }
        parts.back() += value[i];
        if (value[i] == '\\' && i + 1 < value.size()) parts.back() += value[++i];
    }
    return parts;
}

std::string Joined(const std::vector<std::string>& parts, char separator) {
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) text += separator;
        text += parts[i];
    }
    return text;
}

std::string ParameterText(std::string_view written) {
    std::string text;
    for (std::size_t i = 0; i < written.size(); ++i) {
        const char next = written[i] == '^' && i + 1 < written.size() ? written[i + 1] : '\0';
        const bool escaped = next == 'n' || next == '\'' || next == '^';
        if (escaped) ++i;
        text += !escaped ? written[i] : next == 'n' ? '\n' : next == '\'' ? '"' : '^';
    }
    return text;
}

std::string WrittenParameter(std::string_view text) {
    std::string written;
    for (const char c : text) {
        if (c == '^') {
            written += "^^";
        } else if (c == '\n') {
            written += "^n";
        } else if (c == '"') {
            written += "^'";
        } else if (c != '\r') {
            written += c;
        }
    }
    return written.find_first_of(",;:") == std::string::npos ? written : '"' + written + '"';
}

std::string InFolds(std::string_view line, std::size_t whole, std::string_view lineEnd) {
    std::string folds;
    std::size_t room = std::max(kLongestFold, whole + 4);
    for (; line.size() > room; room = kLongestFold - 1) {
        std::size_t cut = room;
        // A character has four bytes at most; what has no start within them is not UTF-8.
        while (cut > room - 4 && ContinuesCharacter(line[cut])) --cut;
        folds.append(line.substr(0, cut)).append(lineEnd).append(" ");
        line.remove_prefix(cut);
    }
    return folds.append(line).append(lineEnd);
}

}  // namespace contacts
