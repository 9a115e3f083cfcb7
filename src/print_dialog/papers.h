// A printer's papers: those of its PPD file, and sizes that somebody typed.
#pragma once

#include <optional>
#include <string>

#include "printing/ppd_papers.h"

namespace kalmo {

/// In the user's units: "210 × 297 mm", "8.5 × 11 in". In points.
[[nodiscard]] std::string PaperSizeText(double width, double height);

/// The paper of that PageSize choice. Also "Custom.200x300", in points or with a unit behind it,
/// where the printer takes any size; such a paper has no margins that anybody knows. Nothing for
/// any other choice.
[[nodiscard]] std::optional<PPDPaper> FindPaper(const PPDDescription& printer,
                                                const std::string& choice);

}  // namespace kalmo
