#include "settings/feature_database.h"

#include "settings/ppd_file.h"
#include "shell/base/plugin_bundle.h"

namespace kalmo::test {
namespace {

constexpr char kProfile[] = R"(<?xml version="1.0"?><plist version="1.0"><dict>
<key>Features</key><dict>
  <key>Resolution</key><dict><key>Syntax</key><dict>
    <key>Number</key><dict><key>Default</key><integer>600</integer></dict>
    <key>Keyword</key><dict>
      <key>Low</key><dict><key>Default</key><integer>1</integer></dict>
      <key>Mid</key><dict><key>Default</key><true/></dict></dict></dict></dict>
  <key>Owner</key><dict><key>Syntax</key><dict>
    <key>Keyword</key><dict><key>Me</key><dict><key>Default</key><false/></dict></dict>
    <key>Name</key><dict><key>Default</key><string>nobody</string></dict></dict></dict>
  <key>Broken</key><string>no dictionary</string>
</dict></dict></plist>)";

/// The plug-in's bundle with this profile, loaded.
class LoadedProfile final {
public:
    explicit LoadedProfile(const std::string& profile)
        : bundle_(Owned<CFBundleRef>::Adopt(OpenBundle(WriteBundle(
              MakeFolder("profile"), "Profile", "com.example" + std::to_string(profile.size()),
              {{"Resources/Device Profile.plist", profile}})))) {
        gBundle = bundle_;
        KDPInitialize();
    }
    ~LoadedProfile() {
        KDPFinalize();
        gBundle = nullptr;
    }

private:
    Owned<CFBundleRef> bundle_;
};

TEST(FeatureDatabase, DefaultComesFromAKeywordBeforeANameOrNumber) {
    const LoadedProfile loaded(kProfile);
    for (const auto& [feature, expectedForm, expected] :
         {std::tuple{"Resolution", "Keyword", "Mid"},
          {"Owner", "Name", "nobody"},
          {"Broken", "", ""}}) {
        SCOPED_TRACE(feature);
        CFStringRef form = nullptr;
        CFTypeRef value = CFSTR("");
        KDPGetFeatureDefaultValue(KDPGetFeature(CFStringMakeConstant(feature)), &form, &value);
        EXPECT_EQ(CFStringToUTF8(form), expectedForm);
        EXPECT_EQ(TakeText(CFStringCreateWithFormat(nullptr, CFSTR("%@"), value)), expected);
    }
}

TEST(FeatureDatabase, FirstProfileStaysAndNoneAnswersNothing) {
    {
        const LoadedProfile first(kProfile);
        const LoadedProfile second("<plist version=\"1.0\"><dict/></plist>");
        EXPECT_NE(KDPGetFeature(CFSTR("Owner")), nullptr);
    }
    for (const char* profile : {"no property list", "<plist version=\"1.0\"><array/></plist>"}) {
        const LoadedProfile loaded(profile);
        EXPECT_EQ(KDPGetFeature(CFSTR("Owner")), nullptr);
        EXPECT_FALSE(KDPGetFeatureDefaultValue(nullptr, nullptr, nullptr));
    }
}

}  // namespace
}  // namespace kalmo::test
