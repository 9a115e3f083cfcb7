// PPD files written for a test, and the sample printers.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace kalmo::test {

/// A sample printer of the project: "kalmo-office-color", "kalmo-office-mono", "kalmo-production",
/// "kalmo-basic".
[[nodiscard]] std::filesystem::path SamplePPD(const std::string& printer);
/// A small PPD file of that maker with Letter and A4, in a fresh folder.
[[nodiscard]] std::filesystem::path WritePPD(const std::string& manufacturer);

/// What each constraint in a PPD file's text forbids together, options in order: keyword and choice
/// (empty: any that is not off).
[[nodiscard]] std::set<std::vector<std::pair<std::string, std::string>>> ConstraintsIn(
    const std::filesystem::path& ppd);

/// One option of a PPD file.
[[nodiscard]] std::string PPDOption(const std::string& keyword, const std::string& defaultChoice,
                                    const std::vector<std::string>& choices);
/// A whole PPD file with this body.
[[nodiscard]] std::string PPDText(const std::string& body);

}  // namespace kalmo::test
