// The text of a PPD file before libcups parses it: read with limits, its translations marked.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// More than any maker's PPD file with all its translations.
inline constexpr std::size_t kPPDMaximumBytes = 8u << 20;
/// One letter marks each language.
inline constexpr std::size_t kPPDMaximumLanguages = 26;

/// The file's text, unpacked when it is gzipped. Nothing, with a one-line reason, for anything but
/// an ordinary file within the limits that begins as a PPD file does. Never waits for a writer.
[[nodiscard]] std::optional<std::string> ReadPPDText(const std::string& path, std::string* reason);

/// libcups loads translations for the language of the locale alone, which must be installed, and
/// knows nothing of the LANGUAGE variable. So the languages that the user prefers ("de-AT", "de",
/// "en") get names that it loads always: "*de_AT.PageSize A4/..." becomes "*a.PageSize A4/..." when
/// "de-AT" comes first, the second language's become "*b.", and so on.
[[nodiscard]] std::string MarkTranslations(std::string_view text,
                                           const std::vector<std::string>& languages);
