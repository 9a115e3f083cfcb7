// UTF-8 texts made fit to be shown.
#pragma once

#include <string>

namespace kalmo {

/// At most `length` bytes, cut between characters.
[[nodiscard]] inline std::string Shortened(std::string text, std::size_t length) {
    if (text.size() <= length) return text;
    while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) --length;
    return text.substr(0, length);
}

/// Where something would end a line, steer a terminal or turn the reading direction, a blank.
[[nodiscard]] std::string WithoutControls(const std::string& text);

}  // namespace kalmo
