// Small PDF documents for tests.
#pragma once

#include <functional>
#include <string>

#include "graphics/context.h"

namespace kalmo::test {

/// Pages of `box`, each drawn by `draw`; empty when the drawing failed.
std::string DrawnPdf(const CGRect& box, const std::function<void(CGContextRef)>& draw,
                     int pages = 1);
/// An A4 document with a figure on each page.
[[nodiscard]] std::string MakePdf(int pages);
/// Puts bytes into the std::string `info`, for a consumer.
std::size_t Append(void* info, const void* bytes, std::size_t count);

}  // namespace kalmo::test
