// The layers of text in a vCard's line: character set, transfer encoding, escapes, folds.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace contacts {

enum class Version { v21, v30, v40 };

/// ASCII letters only.
[[nodiscard]] std::string Upper(std::string_view text);
[[nodiscard]] bool EqualWithoutCase(std::string_view a, std::string_view b);
[[nodiscard]] bool StartsWithoutCase(std::string_view text, std::string_view start);
[[nodiscard]] std::string_view Trimmed(std::string_view text);

/// Bytes of a named character set as UTF-8. Without a name, or with one that is not known: valid
/// UTF-8 stays, all else is Latin-1. A null byte is left out.
[[nodiscard]] std::string UTF8Of(std::string_view bytes, std::string_view characterSet);

[[nodiscard]] std::string FromQuotedPrintable(std::string_view text);
/// With soft breaks, so that no line has more than 76 bytes; `column` bytes stand before it.
[[nodiscard]] std::string ToQuotedPrintable(std::string_view text, std::size_t column,
                                            std::string_view lineEnd);

[[nodiscard]] std::string Unescaped(std::string_view value);
/// Version 2.1 knows no escape for the end of a line: it takes quoted-printable there.
[[nodiscard]] std::string Escaped(std::string_view text, Version version);
/// At separators that are not escaped; the parts stay escaped. At least one.
[[nodiscard]] std::vector<std::string> SplitAt(char separator, std::string_view value);
[[nodiscard]] std::string Joined(const std::vector<std::string>& parts, char separator);

/// `^n`, `^'` and `^^` of a parameter's value (RFC 6868), read and written; written values are
/// quoted where they must be.
[[nodiscard]] std::string ParameterText(std::string_view written);
[[nodiscard]] std::string WrittenParameter(std::string_view text);

/// In lines of at most 75 bytes, none of which starts inside a character; the first `whole` bytes
/// stay together.
[[nodiscard]] std::string InFolds(std::string_view line, std::size_t whole,
                                  std::string_view lineEnd);

}  // namespace contacts
