// Small PDF documents for tests.
#pragma once

#include <string>

namespace kalmo::test {

/// An A4 document with a figure on each page.
[[nodiscard]] std::string MakePdf(int pages);

}  // namespace kalmo::test
