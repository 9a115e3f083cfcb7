// Small PDF documents for tests.
#pragma once

#include <string>
#include <vector>

namespace kalmo::test {

/// An A4 document with one line of text on each page.
[[nodiscard]] std::string MakePdf(const std::vector<std::string>& pageTexts);

}  // namespace kalmo::test
