#include "shell/base/texts.h"

#include <gtest/gtest.h>

#include "foundation/number.h"
#include "kalmo/statuses.h"
#include "shell/base/help.h"
#include "shell/base/notices.h"
#include "support/bundles.h"
#include "support/private_home.h"
#include "system/presence.h"
#include "system/system.h"

namespace kalmo {
namespace {

constexpr char kStrings[] =
    "\"Header\" = \"Too short\";\n\"Message\" = \"%1$d to %2$d characters, 100%%, not %%n\";\n"
    "\"Yes\" = \"Do it\";\n\"No\" = \"Leave it\";\n";

class Texts : public testing::Test {
protected:
    Owned<CFBundleRef> bundle = Owned<CFBundleRef>::Adopt(test::OpenBundle(
        test::WriteBundle(test::MakeFolder("bundle"), "Texts", "com.example.texts",
                          {{"Resources/en.lproj/Localizable.strings", kStrings}})));
};

TEST_F(Texts, MissingTextIsShownAndReported) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(CFStringToUTF8(CopyText(bundle, CFSTR("Yes"))), "Do it");
    EXPECT_EQ(CopyTextIfPresent(bundle, CFSTR("Maybe")), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    testing::internal::CaptureStderr();
    EXPECT_EQ(CFStringToUTF8(CopyText(bundle, CFSTR("Maybe"), CFSTR("LANFax"))), kStringNotFound);
    EXPECT_EQ(CFStringToUTF8(CopyText(nullptr, CFSTR("Yes"))), kStringNotFound);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "No text in table \"LANFax\" for key \"Maybe\"\n"
              "No text in table \"Localizable\" for key \"Yes\"\n");
}

TEST_F(Texts, NoticesAndQuestionsFillTheFormat) {
    std::string said;
    Presence presence = UnattendedPresence();
    presence.notice = [&](CFStringRef header, CFStringRef message) {
        said = CFStringToUTF8(header) + "|" + CFStringToUTF8(message);
    };
    presence.alert = [&](const AlertTexts& texts) {
        said = CFStringToUTF8(texts.message) + "|" + CFStringToUTF8(texts.defaultButton) + "|" +
               CFStringToUTF8(texts.alternateButton);
        return true;
    };
    InstallPresence(presence);
    const SInt32 four = 4, ten = 10;
    const auto low = Owned<CFNumberRef>::Adopt(CFNumberCreate(nullptr, kCFNumberIntType, &four));
    const auto high = Owned<CFNumberRef>::Adopt(CFNumberCreate(nullptr, kCFNumberIntType, &ten));
    const CFTypeRef limits[] = {low, high};
    ShowNoticeWithKeys(bundle, {CFSTR("Header"), CFSTR("Message")}, limits, 2);
    EXPECT_EQ(said, "Too short|4 to 10 characters, 100%, not %n");
    const NoticeKeys keys{CFSTR("Header"), CFSTR("Header")};
    EXPECT_TRUE(AskWithKeys(bundle, keys, CFSTR("Yes"), CFSTR("No"), nullptr, 0));
    EXPECT_EQ(said, "Too short|Do it|Leave it");
    InstallPresence(UnattendedPresence());
    EXPECT_FALSE(AskWithKeys(bundle, keys, CFSTR("Yes"), CFSTR("No"), nullptr, 0));
}

TEST_F(Texts, HelpGoesToThePageUnlessOnlyAnAnchorIsGiven) {
    const auto folder = test::WriteBundle(
        test::MakeFolder("bundle"), "Help", "com.example.help",
        {{"Resources/en.lproj/Book/index.htm", "<a name=\"start\"></a>"},
         {"Resources/en.lproj/Book/how/secure.htm", "<a name=\"deep\"></a>"},
         {"Info.plist",
          "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>com.example.help"
          "</string><key>CFBundleHelpBookName</key><string>Test Help</string>"
          "<key>CFBundleHelpBookFolder</key><string>Book</string></dict></plist>"}});
    const auto book = Owned<CFBundleRef>::Adopt(test::OpenBundle(folder));
    ASSERT_EQ(AHRegisterHelpBook(book), noErr);
    std::string opened;
    Presence presence = UnattendedPresence();
    presence.helpPage = [&](CFStringRef path, CFStringRef) {
        opened = std::filesystem::path(CFStringToUTF8(path)).filename();
        return noErr;
    };
    InstallPresence(presence);
    const struct {
        const char* why;
        CFStringRef page, anchor;
        const char* file;
    } rows[] = {{"neither", nullptr, nullptr, "index.htm"},
                {"page", CFSTR("how/secure.htm"), nullptr, "secure.htm"},
                {"anchor", nullptr, CFSTR("deep"), "secure.htm"},
                {"both", CFSTR("index.htm"), CFSTR("deep"), "index.htm"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(DisplayHelp(book, row.page, row.anchor), noErr);
        EXPECT_EQ(opened, row.file);
    }
    EXPECT_EQ(DisplayHelp(bundle, nullptr, nullptr), paramErr) << "no help book";
    InstallPresence(UnattendedPresence());
}

}  // namespace
}  // namespace kalmo
