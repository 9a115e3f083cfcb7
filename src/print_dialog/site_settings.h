// What the site has set for all its users: kalmo-print/site.conf in the folders of
// $XDG_CONFIG_DIRS (/etc/xdg), the first that sets a key. Any thread.
#pragma once

#include <QString>
#include <filesystem>
#include <vector>

namespace kalmo {

/// $XDG_CONFIG_DIRS with "kalmo-print" behind each, in their order; absolute paths only.
[[nodiscard]] std::vector<std::filesystem::path> SiteFolders();

/// The text under "GROUP/KEY"; empty where no site.conf sets it.
[[nodiscard]] QString SiteText(const char* key);
/// "true", "yes", "on" and "1" are true, any other text is false.
[[nodiscard]] bool SiteFlag(const char* key, bool byDefault);

}  // namespace kalmo
