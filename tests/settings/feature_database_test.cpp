#include "settings/feature_database.h"

#include "settings/ppd_file.h"
#include "shell/base/plugin_bundle.h"

namespace kalmo::test {
namespace {

constexpr char kProfile[] = R"(<?xml version="1.0"?><plist version="1.0"><dict>
<key>Features</key><dict>
  <key>Resolution</key><dict>
    <key>Properties</key><dict><key>Hidden</key><false/><key>Order</key><integer>0</integer></dict>
    <key>Syntax</key><dict>
      <key>Number</key><dict><key>Default</key><integer>600</integer></dict>
      <key>Name</key><dict><key>Default</key><string>Fine</string></dict>
      <key>Keyword</key><dict>
        <key>Low</key><dict><key>Default</key><integer>1</integer></dict>
        <key>Mid</key><dict><key>Default</key><true/>
          <key>Properties</key><dict><key>Kind</key><string>coarse</string></dict></dict>
        <key>High</key><dict><key>Default</key><true/></dict></dict></dict></dict>
  <key>Owner</key><dict><key>Syntax</key><dict>
    <key>Keyword</key><dict><key>Me</key><dict><key>Default</key><false/></dict></dict>
    <key>Number</key><dict><key>Default</key><integer>7</integer></dict>
    <key>Name</key><dict><key>Default</key><string>nobody</string></dict></dict></dict>
  <key>Copies</key><dict>
    <key>Properties</key><dict><key>Hidden</key><true/></dict>
    <key>Syntax</key><dict><key>Keyword</key><dict/><key>Name</key><dict/>
    <key>Number</key><dict><key>Default</key><integer>1</integer></dict></dict></dict>
  <key>Plain</key><dict/>
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

CFIndex CountOf(CFArrayRef created) { return CFArrayGetCount(Owned<CFArrayRef>::Adopt(created)); }

TEST(FeatureDatabase, DefaultComesFromKeywordNameNumberInThatOrder) {
    const LoadedProfile loaded(kProfile);
    for (const auto& [feature, expectedForm, expected] :
         {std::tuple{"Resolution", "Keyword", "Mid"},
          {"Owner", "Name", "nobody"},
          {"Copies", "Number", "1"},
          {"Broken", "", ""}}) {
        SCOPED_TRACE(feature);
        CFStringRef form = nullptr;
        CFTypeRef value = CFSTR("");
        KDPGetFeatureDefaultValue(KDPGetFeature(CFStringMakeConstant(feature)), &form, &value);
        EXPECT_EQ(CFStringToUTF8(form), expectedForm);
        EXPECT_EQ(TakeText(CFStringCreateWithFormat(nullptr, CFSTR("%@"), value)), expected);
    }
}

TEST(FeatureDatabase, QueriesFindByPropertyAlsoFalseAndZero) {
    const LoadedProfile loaded(kProfile);
    EXPECT_EQ(CountOf(KDPGetFeaturesWithProperty(CFSTR("Hidden"))), 2);
    EXPECT_EQ(CountOf(KDPGetFeaturesWithPropertyAndValue(CFSTR("Hidden"), kCFBooleanTrue)), 1);
    const CFDictionaryRef feature = KDPGetFeature(CFSTR("Resolution"));
    const auto keywords = Owned<CFArrayRef>::Adopt(
        KDPGetKeywordsWithPropertyAndValue(feature, CFSTR("Kind"), CFSTR("coarse")));
    EXPECT_EQ(CFArrayGetValueAtIndex(keywords, 0),
              CFDictionaryGetValue(KDPGetFeatureSyntax(feature, CFSTR("Keyword")), CFSTR("Mid")))
        << "the keyword's dictionary, not its name";
}

TEST(FeatureDatabase, FirstProfileStaysAndNoneAnswersNothing) {
    {
        const LoadedProfile first(kProfile);
        const LoadedProfile second("<plist version=\"1.0\"><dict/></plist>");
        EXPECT_NE(KDPGetFeature(CFSTR("Plain")), nullptr);
    }
    for (const char* profile : {"no property list", "<plist version=\"1.0\"><array/></plist>"}) {
        const LoadedProfile loaded(profile);
        EXPECT_EQ(KDPGetFeature(CFSTR("Plain")), nullptr);
        EXPECT_FALSE(KDPGetFeatureDefaultValue(nullptr, nullptr, nullptr));
    }
}

}  // namespace
}  // namespace kalmo::test
