#include "support/bundles.h"

#include "support/private_home.h"
#include "support/values.h"

namespace kalmo::test {

std::filesystem::path WriteBundle(const std::filesystem::path& parent, const std::string& name,
                                  const std::string& identifier,
                                  const std::map<std::string, std::string>& files) {
    const auto contents = parent / (name + ".plugin") / "Contents";
    std::filesystem::create_directories(contents / "Resources");
    WriteFile(contents / "Info.plist",
              Plist("<dict><key>CFBundleIdentifier</key><string>" + identifier +
                    "</string><key>CFBundleExecutable</key><string>" + name + "</string></dict>"));
    for (const auto& [path, text] : files) {
        std::filesystem::create_directories((contents / path).parent_path());
        WriteFile(contents / path, text);
    }
    return contents.parent_path();
}

CFBundleRef OpenBundle(const std::filesystem::path& folder) {
    return CFBundleCreate(kCFAllocatorDefault, FileURL(folder));
}

std::filesystem::path ProductBundle() {
    return std::filesystem::path(KALMO_BINARY_DIR) / "KalmoFeatures.plugin";
}

}  // namespace kalmo::test
