#include "shell/base/texts.h"

#include <gtest/gtest.h>

#include "kalmo/statuses.h"
#include "shell/base/notices.h"
#include "support/bundles.h"
#include "support/private_home.h"
#include "system/presence.h"

namespace kalmo {
namespace {

constexpr char kStrings[] =
    "\"Header\" = \"Too short\";\n\"Message\" = \"%1$@ to %2$@ characters, 100%%, not %%n\";\n"
    "\"Yes\" = \"Do it\";\n\"No\" = \"Leave it\";\n";

class Texts : public testing::Test {
protected:
    Owned<CFBundleRef> bundle = Owned<CFBundleRef>::Adopt(test::OpenBundle(
        test::WriteBundle(test::MakeFolder("bundle"), "Texts", "com.example.texts",
                          {{"Resources/en.lproj/Localizable.strings", kStrings}})));
};

TEST_F(Texts, MissingTextIsShownAndReported) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(CFStringToUTF8(CopyText(bundle, CFSTR("Maybe"), CFSTR("LANFax"))), kStringNotFound);
    EXPECT_EQ(CFStringToUTF8(CopyText(nullptr, CFSTR("Yes"))), kStringNotFound);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "No text in table \"LANFax\" for key \"Maybe\"\n"
              "No text in table \"Localizable\" for key \"Yes\"\n");
}

TEST_F(Texts, QuestionsFillTheFormat) {
    std::string said;
    Presence presence = UnattendedPresence();
    presence.alert = [&](const AlertTexts& texts) {
        said = CFStringToUTF8(texts.message) + "|" + CFStringToUTF8(texts.defaultButton) + "|" +
               CFStringToUTF8(texts.alternateButton);
        return true;
    };
    InstallPresence(presence);
    const CFTypeRef limits[] = {CFSTR("4"), CFSTR("10")};
    const NoticeKeys keys{CFSTR("Header"), CFSTR("Message")};
    EXPECT_TRUE(AskWithKeys(bundle, keys, CFSTR("Yes"), CFSTR("No"), limits, 2));
    EXPECT_EQ(said, "4 to 10 characters, 100%, not %n|Do it|Leave it");
    InstallPresence(UnattendedPresence());
}

}  // namespace
}  // namespace kalmo
