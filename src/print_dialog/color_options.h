// The PPD options that say whether a job prints in colour.
#pragma once

#include <string>
#include <string_view>

#include "printing/ppd_papers.h"

namespace kalmo {

/// Borrowed; null when the printer has no such option, or one that offers nothing.
[[nodiscard]] const PPDOptionTexts* FindOption(const PPDDescription& printer,
                                               std::string_view keyword);
/// The option that the dialog shows ("KLMColor", "ColorModel"); empty when there is none.
[[nodiscard]] std::string ColorOption(const PPDDescription& printer);
/// Whether the choice of a colour option prints in black.
[[nodiscard]] bool IsGreyChoice(std::string_view choice);
/// The choice of the printer's "KLColorMode" that agrees with a choice of the shown option; empty
/// for no choice and for a printer without a mode of its own.
[[nodiscard]] std::string ColorModeFor(const PPDDescription& printer, std::string_view choice);

inline constexpr const char* kColorModeOption = "KLColorMode";

}  // namespace kalmo
