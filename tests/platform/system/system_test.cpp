// The machine's services: names, routes, help books, and words without a window.
#include "system/system.h"
#include "support/test.h"
#include "system/machine_files.h"
#include "system/presence.h"

namespace kalmo::test {
namespace {

TEST(MachineFiles, PrettyHostNameIsReadAsAShellWould) {
    const std::tuple<const char*, const char*> kRows[] = {
        {"PRETTY_HOSTNAME=\"Ada's desk\"\n", "Ada's desk"},
        {"# PRETTY_HOSTNAME=x\nICON_NAME=computer\n PRETTY_HOSTNAME='a \\ b'\r\n", "a \\ b"},
        {"PRETTY_HOSTNAME=\"a \\\"b\\\" \\$c\"", "a \"b\" $c"},
        {"PRETTY_HOSTNAME=\"open\\", "open\\"},
        {"NOT_PRETTY_HOSTNAME=x\n", ""},
    };
    for (const auto& [text, name] : kRows) EXPECT_EQ(PrettyHostName(text), name) << text;
}

TEST(MachineFiles, PrimaryInterfaceHasTheDefaultRouteOfLeastMetric) {
    const std::string head =
        "Iface\tDestination\tGateway\tFlags\tRefCnt\tUse\tMetric\tMask\tMTU\tWindow\tIRTT\n";
    const std::string wlan = "wlan0\t00000000\t0101A8C0\t0003\t0\t0\t600\t00000000\t0\t0\t0\n";
    const std::string wire = "enp3s0\t00000000\t0101A8C0\t0003\t0\t0\t100\t00000000\t0\t0\t0\n";
    const std::string lan = "eth9\t0000A8C0\t00000000\t0001\t0\t0\t0\t00FFFFFF\t0\t0\t0\n";
    const std::string half = "tun0\t00000000\t0101A8C0\t0003\t0\t0\t0\t00000080\t0\t0\t0\n";
    const std::string refused = "eth8\t00000000\t00000000\t0201\t0\t0\t0\t00000000\t0\t0\t0\n";
    const std::string loop = "lo\t00000000\t00000000\t0001\t0\t0\t0\t00000000\t0\t0\t0\n";
    EXPECT_EQ(DefaultRouteInterface(head + lan + wlan + half + wire + refused + loop), "enp3s0");
    EXPECT_EQ(DefaultRouteInterface(head + lan + half + refused + loop), "");
    EXPECT_EQ(DefaultRouteInterface(head + "wlan0\t0000"), "");
}

TEST(System, DynamicStoreKnowsAnInterfacesAddresses) {
    const auto loopback = Owned<CFTypeRef>::Adopt(
        CopyDynamicStoreValue(CFSTR("KPDE"), CFSTR("State:/Network/Interface/lo/IPv4")));
    ASSERT_TRUE(loopback);
    const auto* addresses = static_cast<CFArrayRef>(
        CFDictionaryGetValue(static_cast<CFDictionaryRef>(loopback.get()), CFSTR("Addresses")));
    ASSERT_GE(CFArrayGetCount(addresses), 1);
    EXPECT_TRUE(CFEqual(CFArrayGetValueAtIndex(addresses, 0), CFSTR("127.0.0.1")));
}

struct HelpBook : testing::Test {
    HelpBook() {
        folder_ = WriteBundle(MakeFolder("help"), "Book", "com.kalmo.test.book",
                              {{"Resources/en.lproj/Help/index.htm", "<a name=\"top\">English</a>"},
                               {"Resources/de.lproj/Help/index.htm", "<p>Deutsch</p>"},
                               {"Resources/de.lproj/Help/paper/trays.htm",
                                "<h2 id=\"tray-1\">Fach</h2><a name=\"tray\">x</a>"},
                               {"Resources/de.lproj/secret.htm", "<a name=\"secret\">x</a>"}});
        const auto help = folder_ / "Contents/Resources/de.lproj/Help";
        std::filesystem::create_symlink("../secret.htm", help / "link.htm");
        WriteFile(folder_ / "Contents/Info.plist",
                  Plist("<dict><key>CFBundleHelpBookName</key><string>Test Help</string>"
                        "<key>CFBundleHelpBookFolder</key><string>Help</string></dict>"));
        setenv("LC_ALL", "de_DE.UTF-8", 1);
        InstallPresence({.helpPage = [this](CFStringRef path, CFStringRef anchor) {
            shown_ = CFStringToUTF8(path);
            anchor_ = CFStringToUTF8(anchor);
            return noErr;
        }});
    }

    std::filesystem::path folder_;
    std::string shown_, anchor_;
};

TEST_F(HelpBook, OpensPagesOfTheUsersLanguageAndNothingOutsideTheBook) {
    ASSERT_EQ(AHRegisterHelpBook(Owned<CFBundleRef>::Adopt(OpenBundle(folder_))), noErr);
    EXPECT_EQ(AHGotoPage(CFSTR("Test Help"), nullptr, nullptr), noErr);
    EXPECT_TRUE(shown_.ends_with("/de.lproj/Help/index.htm")) << shown_;
    EXPECT_EQ(AHGotoPage(CFSTR("Test Help"), CFSTR("paper/trays.htm"), CFSTR("tray-1")), noErr);
    EXPECT_TRUE(shown_.ends_with("/Help/paper/trays.htm")) << shown_;
    EXPECT_EQ(std::exchange(anchor_, ""), "tray-1");
    EXPECT_EQ(AHLookupAnchor(CFSTR("Test Help"), CFSTR("tray")), noErr);
    EXPECT_EQ(anchor_, "tray");
    shown_.clear();
    EXPECT_EQ(AHGotoPage(CFSTR("Other Help"), nullptr, nullptr), fnfErr);
    const std::string secret = (folder_ / "Contents/Resources/de.lproj/secret.htm").string();
    for (const std::string& page :
         {std::string("../secret.htm"), std::string("paper/../../secret.htm"), secret,
          std::string("link.htm"), std::string("paper"), std::string(".")})
        EXPECT_EQ(AHGotoPage(CFSTR("Test Help"), String(page), nullptr), fnfErr) << page;
    for (const char* anchor : {"secret", "tra", "Tray", "top", ""})
        EXPECT_EQ(AHLookupAnchor(CFSTR("Test Help"), String(anchor)), fnfErr) << anchor;
    EXPECT_EQ(AHLookupAnchor(CFSTR("Test Help"), nullptr), fnfErr);
    EXPECT_EQ(shown_, "");
}

TEST(Presence, UnattendedWritesOneLineAndAnswersCancel) {
    const Presence presence = UnattendedPresence();
    testing::internal::CaptureStderr();
    presence.notice(CFSTR("No\npaper"), CFSTR("Fill\r\n\ttray 1.\n\x1b[2J"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "No paper: Fill tray 1. [2J\n");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(presence.alert({.header = CFSTR("Too long"), .defaultButton = CFSTR("OK")}));
    presence.beep();
    EXPECT_EQ(presence.helpPage(CFSTR("/page"), nullptr), fnfErr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Too long\n");
    EXPECT_FALSE(presence.modalLoopsRun);
}

}  // namespace
}  // namespace kalmo::test
