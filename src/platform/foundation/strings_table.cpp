#include "foundation/strings_table.h"

#include <array>
#include <optional>

#include "foundation/string_private.h"

namespace {

using kalmo::foundation::UTF16FromUTF8;
using kalmo::foundation::UTF8FromUTF16;

constexpr std::size_t kMaximumFaults = 50;

class TableReader final {
public:
    explicit TableReader(std::u16string text) : text_(std::move(text)) {}

    StringsTable read() {
        while (skipSpace(), at_ < text_.size()) {
            if (!readEntry()) recover();
        }
        return std::move(table_);
    }

private:
    bool readEntry() {
        const auto key = readText();
        if (!key) return fault("a key in quotes is expected");
        skipSpace();
        if (!take(u'=')) return fault("'=' is expected after the key");
        skipSpace();
        const auto text = readText();
        if (!text) return fault("a text in quotes is expected");
        skipSpace();
        if (!take(u';')) return fault("';' is expected after the text");
        if (!table_.texts.emplace(UTF8FromUTF16(*key), UTF8FromUTF16(*text)).second) {
            fault("the key \"" + UTF8FromUTF16(*key) + "\" stands here again");
        }
        return true;
    }

    /// A quoted text with escapes; nothing when there is none or it does not end.
    std::optional<std::u16string> readText() {
        const std::size_t start = at_;
        const int startLine = line_;
        if (!take(u'"')) return std::nullopt;
        std::u16string text;
        while (at_ < text_.size() && text_[at_] != u'"') {
            const char16_t unit = text_[at_++];
            if (unit == u'\n') ++line_;
            text += unit == u'\\' && at_ < text_.size() ? readEscape() : unit;
        }
        if (take(u'"')) return text;
        at_ = start + 1;
        line_ = startLine;
        return std::nullopt;
    }

    char16_t readEscape() {
        static constexpr std::array<std::array<char16_t, 2>, 3> kEscapes{
            {{u'n', u'\n'}, {u't', u'\t'}, {u'r', u'\r'}}};
        const char16_t letter = text_[at_++];
        if (letter == u'\n') ++line_;
        if (letter == u'U' || letter == u'u') return readUnit();
        for (const auto& [name, unit] : kEscapes) {
            if (name == letter) return unit;
        }
        return letter;
    }

    char16_t readUnit() {
        unsigned value = 0;
        int digits = 0;
        for (; digits < 4 && at_ < text_.size(); ++digits, ++at_) {
            const char16_t unit = text_[at_];
            if (unit >= u'0' && unit <= u'9') {
                value = value * 16 + (unit - u'0');
            } else if ((unit | 0x20) >= u'a' && (unit | 0x20) <= u'f') {
                value = value * 16 + ((unit | 0x20u) - u'a' + 10);
            } else {
                break;
            }
        }
        if (digits < 4) fault("four hexadecimal digits are expected after \\U");
        return digits < 4 ? u'\uFFFD' : static_cast<char16_t>(value);
    }

    void skipSpace() {
        while (at_ < text_.size()) {
            if (text_[at_] == u'\n') ++line_;
            if (text_[at_] == u' ' || (text_[at_] >= u'\t' && text_[at_] <= u'\r')) {
                ++at_;
            } else if (!skipComment()) {
                return;
            }
        }
    }

    bool skipComment() {
        const auto rest = std::u16string_view(text_).substr(at_);
        const bool block = rest.starts_with(u"/*");
        if (!block && !rest.starts_with(u"//")) return false;
        const std::u16string_view end = block ? u"*/" : u"\n";
        const std::size_t found = rest.find(end, 2);
        if (found == std::u16string_view::npos && block) fault("this comment does not end");
        const std::size_t stop =
            found == std::u16string_view::npos ? rest.size() : found + (block ? end.size() : 0);
        for (std::size_t i = 0; i < stop; ++i) line_ += rest[i] == u'\n';
        at_ += stop;
        return true;
    }

    bool take(char16_t unit) {
        if (at_ >= text_.size() || text_[at_] != unit) return false;
        ++at_;
        return true;
    }

    bool fault(const std::string& what) {
        if (table_.faults.size() < kMaximumFaults) {
            table_.faults.push_back("line " + std::to_string(line_) + ": " + what);
        }
        return false;
    }

    /// On behind the next semicolon or line end.
    void recover() {
        while (at_ < text_.size()) {
            const char16_t unit = text_[at_++];
            if (unit == u'\n') ++line_;
            if (unit == u';' || unit == u'\n') return;
        }
    }

    std::u16string text_;
    std::size_t at_ = 0;
    int line_ = 1;
    StringsTable table_;
};

/// The text of UTF-16 bytes behind a byte order mark.
std::u16string FromUTF16(std::string_view bytes, bool bigEndian) {
    std::u16string text;
    for (std::size_t at = 2; at + 1 < bytes.size(); at += 2) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        text += static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
    }
    return text;
}

}  // namespace

StringsTable ReadStringsTable(std::string_view bytes) {
    if (bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE")) {
        StringsTable table = TableReader(FromUTF16(bytes, bytes[0] == '\xFE')).read();
        if (bytes.size() % 2 != 0)
            table.faults.emplace_back("line 1: the file ends within a character");
        return table;
    }
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    const std::u16string text = UTF16FromUTF8(bytes);
    StringsTable table = TableReader(text).read();
    if (UTF8FromUTF16(text) != bytes) {
        table.faults.insert(table.faults.begin(), "line 1: the file is not UTF-8 throughout");
    }
    return table;
}
