// Bundle folders made for a test.
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "foundation/bundle.h"

namespace kalmo::test {

/// Writes NAME.plugin under `parent` with an Info.plist of the identifier and files by their path
/// below Contents ("Resources/en.lproj/Localizable.strings"); returns its folder.
std::filesystem::path WriteBundle(const std::filesystem::path& parent, const std::string& name,
                                  const std::string& identifier,
                                  const std::map<std::string, std::string>& files);
/// The bundle of the folder; the caller releases it.
[[nodiscard]] CFBundleRef OpenBundle(const std::filesystem::path& folder);
/// The product's own bundle in the build folder.
[[nodiscard]] std::filesystem::path ProductBundle();

}  // namespace kalmo::test
