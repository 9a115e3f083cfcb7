// PPD files written for a test, and the sample printers.
#pragma once

#include <filesystem>
#include <string>

namespace kalmo::test {

/// A sample printer of the project: "kalmo-office-color", "kalmo-office-mono".
[[nodiscard]] std::filesystem::path SamplePPD(const std::string& printer);
/// A small PPD file of that maker with Letter and A4, in a fresh folder.
[[nodiscard]] std::filesystem::path WritePPD(const std::string& manufacturer);

}  // namespace kalmo::test
