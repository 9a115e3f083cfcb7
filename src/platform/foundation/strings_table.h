// One .strings table: "key" = "text"; with C comments and escapes, UTF-8 or UTF-16 with byte order
// mark.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#pragma GCC visibility push(default)

struct StringsTable {
    /// Keys and texts in UTF-8.
    std::unordered_map<std::string, std::string> texts;
    /// "line 12: ..." for each fault: bad syntax, duplicate key, bad encoding. Reading goes on
    /// after it.
    std::vector<std::string> faults;
};

/// Never fails: what cannot be read is left out and named in `faults`.
[[nodiscard]] StringsTable ReadStringsTable(std::string_view bytes);

#pragma GCC visibility pop
