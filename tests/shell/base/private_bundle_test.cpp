// Bundles inside the plug-in.
#include <gtest/gtest.h>

#include "shell/base/plugin_bundle.h"
#include "support/bundles.h"
#include "support/private_home.h"

namespace kalmo::test {
namespace {

TEST(PrivateBundle, IsLoadedFromThePlugInsFolder) {
    const auto folder = WriteBundle(MakeFolder("bundle"), "Outer", "com.kalmo.test.outer", {});
    const auto outer = Owned<CFBundleRef>::Adopt(OpenBundle(folder));
    const auto inner =
        WriteBundle(folder / "Contents/PlugIns", "Inner", "com.kalmo.test.inner", {});
    const auto loads = [&](CFStringRef name) {
        Owned<CFBundleRef> found = Owned<CFBundleRef>::Retain(outer);
        const bool loaded = LoadPrivateBundle(outer, name, found.adopt());
        EXPECT_EQ(loaded, found.get() != nullptr);
        return loaded;
    };
    EXPECT_FALSE(loads(CFSTR("Inner.plugin"))) << "it has no executable yet";
    std::filesystem::create_directories(inner / "Contents/Linux");
    std::filesystem::copy_file(std::filesystem::path(KALMO_BINARY_DIR) / "lib/test_localizer.so",
                               inner / "Contents/Linux/Inner.so");
    EXPECT_TRUE(loads(CFSTR("Inner.plugin")));
    EXPECT_FALSE(loads(CFSTR("Missing.plugin")));
    EXPECT_FALSE(LoadPrivateBundle(nullptr, CFSTR("Inner.plugin"), nullptr));
}

}  // namespace
}  // namespace kalmo::test
