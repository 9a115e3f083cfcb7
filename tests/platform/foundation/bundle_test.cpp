// Files, URLs, bundles with their texts and executables, and the plug-in registry.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>

#include "foundation/bundle.h"
#include "support/bundles.h"
#include "support/private_home.h"

namespace {

using kalmo::test::MakeFolder;
using kalmo::test::ReadFile;
using kalmo::test::WriteFile;

Owned<CFStringRef> String(std::string_view text) {
    return Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(text));
}

Owned<CFURLRef> URLOf(const std::filesystem::path& path) {
    return Owned<CFURLRef>::Adopt(
        CFURLCreateWithFileSystemPath(nullptr, String(path.string()), false));
}

TEST(URLs, KeepEveryByteOfAPath) {
    const std::string path = "/tmp/a b/100%/ä#?;.pdf";
    const auto url = URLOf(path);
    EXPECT_EQ(CFStringToUTF8(CFURLGetString(url)), "file:///tmp/a%20b/100%25/%C3%A4%23%3F%3B.pdf");
    const auto back =
        Owned<CFURLRef>::Adopt(CFURLCreateWithString(nullptr, CFURLGetString(url), nullptr));
    EXPECT_EQ(CFStringToUTF8(Owned<CFStringRef>::Adopt(CFURLCopyFileSystemPath(back))), path);
    UInt8 buffer[kMaximumPathSize];
    EXPECT_TRUE(CFURLGetFileSystemRepresentation(URLOf("/" + std::string(1022, 'a')), true, buffer,
                                                 kMaximumPathSize));
    EXPECT_FALSE(CFURLGetFileSystemRepresentation(URLOf("/" + std::string(1023, 'a')), true, buffer,
                                                  kMaximumPathSize));
    const auto web = Owned<CFURLRef>::Adopt(
        CFURLCreateWithString(nullptr, CFSTR("https://example.org/"), nullptr));
    EXPECT_EQ(CFURLCopyFileSystemPath(web), nullptr);
}

TEST(Files, AreReplacedWholeOrNotAtAll) {
    const auto folder = MakeFolder("files");
    const auto file = folder / "settings.plist";
    const auto data =
        Owned<CFDataRef>::Adopt(CFDataCreate(nullptr, reinterpret_cast<const UInt8*>("new"), 3));
    SInt32 error = -1;
    EXPECT_TRUE(CFURLWriteDataAndPropertiesToResource(URLOf(file), data, &error));
    EXPECT_EQ(ReadFile(file), "new");
    struct stat status {};
    stat(file.c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777, 0600u);

    std::filesystem::create_directory(folder / "in the way");
    WriteFile(folder / "in the way/kept", "kept");
    EXPECT_FALSE(CFURLWriteDataAndPropertiesToResource(URLOf(folder / "in the way"), data, &error));
    EXPECT_FALSE(CFURLWriteDataAndPropertiesToResource(URLOf(folder / "no/file"), data, &error));
    EXPECT_EQ(error, ENOENT);
    std::size_t left = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) ++left;
    EXPECT_EQ(left, 2u) << "a temporary file was left behind";

    mkfifo((folder / "pipe").c_str(), 0600);
    for (const auto& [name, expected] :
         {std::pair{"pipe", EINVAL}, {"in the way", EISDIR}, {"missing", ENOENT}}) {
        Owned<CFDataRef> read;
        EXPECT_FALSE(CFURLCreateDataAndPropertiesFromResource(nullptr, URLOf(folder / name),
                                                              read.adopt(), &error));
        EXPECT_EQ(error, expected) << name;
    }
}

TEST(Files, MayHaveNamesThatAreNotUTF8) {
    const std::string path = (MakeFolder("names") / "Entw\xFCrfe.plist").string();
    const auto url = Owned<CFURLRef>::Adopt(CFURLCreateFromFileSystemRepresentation(
        nullptr, reinterpret_cast<const UInt8*>(path.data()), static_cast<CFIndex>(path.size()),
        false));
    const auto data =
        Owned<CFDataRef>::Adopt(CFDataCreate(nullptr, reinterpret_cast<const UInt8*>("new"), 3));
    EXPECT_TRUE(CFURLWriteDataAndPropertiesToResource(url, data, nullptr));
    EXPECT_EQ(ReadFile(path), "new");
}

TEST(Files, PreferencesFolderIsPrivate) {
    const auto folder = Owned<CFURLRef>::Adopt(CopyUserPreferencesFolder());
    const auto path = Owned<CFStringRef>::Adopt(CFURLCopyFileSystemPath(folder));
    struct stat status {};
    stat(CFStringToUTF8(path).c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777, 0700u);
}

std::string TextIn(CFBundleRef bundle, const char* languages, CFStringRef key) {
    setenv("LANGUAGE", languages, 1);
    const auto text =
        Owned<CFStringRef>::Adopt(CFBundleCopyLocalizedString(bundle, key, CFSTR("none"), nullptr));
    unsetenv("LANGUAGE");
    return CFStringToUTF8(text);
}

TEST(Bundles, LookTextsUpInTheUsersLanguages) {
    const auto folder = kalmo::test::WriteBundle(
        MakeFolder("bundle"), "Texts", "test.texts",
        {{"Resources/en.lproj/Localizable.strings", "\"a\"=\"en\"; \"b\"=\"en\"; \"c\"=\"en\";"},
         {"Resources/de.lproj/Localizable.strings", "\"a\"=\"de\"; \"b\"=\"de\";"},
         {"Resources/de-AT.lproj/Localizable.strings", "\"a\"=\"at\";"},
         {"Resources/de.lproj/Help/index.htm", "de"},
         {"Resources/plain.txt", "plain"}});
    const auto bundle = Owned<CFBundleRef>::Adopt(kalmo::test::OpenBundle(folder));
    EXPECT_EQ(TextIn(bundle, "de_AT", CFSTR("a")), "at");
    EXPECT_EQ(TextIn(bundle, "de_AT", CFSTR("b")), "de");
    EXPECT_EQ(TextIn(bundle, "de_AT", CFSTR("c")), "en");
    EXPECT_EQ(TextIn(bundle, "fr:de", CFSTR("b")), "de");
    EXPECT_EQ(TextIn(bundle, "../../etc", CFSTR("b")), "en");
    const auto resource = [&](CFStringRef name, CFStringRef type) {
        return Owned<CFURLRef>::Adopt(CFBundleCopyResourceURL(bundle, name, type, nullptr));
    };
    EXPECT_TRUE(resource(CFSTR("plain"), CFSTR("txt")));
    EXPECT_FALSE(resource(CFSTR("../Info"), CFSTR("plist")));
    EXPECT_FALSE(resource(CFSTR("Help"), nullptr)) << "no English help";
}

TEST(Bundles, NameTheFaultsOfATableOnce) {
    const auto folder =
        kalmo::test::WriteBundle(MakeFolder("bundle"), "Faulty", "test.faulty",
                                 {{"Resources/en.lproj/Localizable.strings", "\n\"a\" \"b\";\n"}});
    const auto bundle = Owned<CFBundleRef>::Adopt(kalmo::test::OpenBundle(folder));
    testing::internal::CaptureStderr();
    EXPECT_EQ(TextIn(bundle, "en", CFSTR("a")), "none");
    EXPECT_EQ(TextIn(bundle, "en", CFSTR("a")), "none");
    const std::string file = (folder / "Contents/Resources/en.lproj/Localizable.strings").string();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), file + ":2: '=' is expected after the key\n");
}

TEST(Bundles, FindOnlyTheirOwnSymbols) {
    // Any library will do as an executable; it depends on the C library, whose symbols do not
    // count.
    const auto folder = kalmo::test::WriteBundle(MakeFolder("bundle"), "Code", "test.code", {});
    std::filesystem::create_directories(folder / "Contents/Linux");
    std::filesystem::copy_file(KALMO_TEST_PLUGIN, folder / "Contents/Linux/Code.so");
    const auto bundle = Owned<CFBundleRef>::Adopt(kalmo::test::OpenBundle(folder));
    EXPECT_NE(CFBundleGetFunctionPointerForName(bundle, CFSTR("TestPlugInFactory")), nullptr);
    EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle, CFSTR("printf")), nullptr);
}

}  // namespace
