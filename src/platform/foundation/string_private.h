// The string object: UTF-16 text. Private to the platform library.
#pragma once

#include <string>

#include "foundation/object_private.h"
#include "foundation/string.h"

struct CFStringObject final : kalmo::foundation::Object {
    CFStringObject(std::u16string characters, bool isMutable);
    std::u16string text;
    bool mutableText;
};

namespace kalmo::foundation {

extern const TypeRecord kStringType;

/// Invalid bytes become U+FFFD; lone surrogates likewise on the way back.
[[nodiscard]] std::u16string UTF16FromUTF8(std::string_view utf8);
[[nodiscard]] std::string UTF8FromUTF16(std::u16string_view text);
[[nodiscard]] CFStringObject* MakeString(std::u16string text);

}  // namespace kalmo::foundation
