// A made-up language, in which texts that nobody can translate and texts without room show.
#pragma once

#include <string>
#include <vector>

namespace kalmo::test {

/// The name of its folders, "qps.lproj".
inline constexpr auto kPseudoLanguage = "qps";

/// The text with accents, two fifths longer and between marks. Places for values (%@, %2$d) and
/// letters to press (&P) stay as they are. In UTF-8, as all here.
[[nodiscard]] std::string PseudoText(const std::string& english);

/// What of a shown text no table holds: the words outside the marks that are not among `data`.
/// Empty for numbers and signs.
[[nodiscard]] std::string WordsOutsideTables(std::string shown,
                                             const std::vector<std::string>& data);

}  // namespace kalmo::test
