// Texts made ready for search and order, once, so that each keystroke only compares bytes.
#pragma once

#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace contacts {

/// Composed and without case: one text begins with another, regardless of case, when its folded
/// bytes begin with the other's.
[[nodiscard]] std::string Folded(std::string_view text);
/// Bytes whose order is the order of the texts in the user's language (LC_ALL, LC_COLLATE, LANG).
[[nodiscard]] std::string SortKey(std::string_view text);

}  // namespace contacts

#pragma GCC visibility pop
