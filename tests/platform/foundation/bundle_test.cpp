// Files, URLs, and bundles with their texts.
#include <sys/stat.h>

#include <cerrno>
#include <thread>

#include "support/test.h"

namespace kalmo::test {
namespace {

TEST(URLs, KeepEveryByteOfAPath) {
    const std::string path = "/tmp/a b/100%/ä#?;.pdf";
    const auto url = FileURL(path);
    EXPECT_EQ(CFStringToUTF8(CFURLGetString(url)), "file:///tmp/a%20b/100%25/%C3%A4%23%3F%3B.pdf");
    const auto back =
        Owned<CFURLRef>::Adopt(CFURLCreateWithString(nullptr, CFURLGetString(url), nullptr));
    EXPECT_EQ(TakeText(CFURLCopyFileSystemPath(back)), path);
}

TEST(Files, AreReplacedWholeOrNotAtAll) {
    const auto folder = MakeFolder("files");
    SInt32 error = -1;
    const auto write = [&](CFURLRef url) {
        return CFURLWriteDataAndPropertiesToResource(url, Data("new"), &error);
    };
    const auto replace = [&folder](const std::string& bytes) {
        CFURLWriteDataUnsynced(FileURL(folder / "busy"), Data(bytes), nullptr);
    };
    const std::string ours(100'000, 'a'), theirs(100'000, 'b');
    std::set<std::string> seen;
    {
        const std::jthread other([&](const std::stop_token& stop) {
            while (!stop.stop_requested()) replace(theirs);
        });
        for (int i = 0; i < 100 || seen.size() < 2; ++i) {
            replace(ours);
            seen.insert(ReadFile(folder / "busy"));
        }
    }
    EXPECT_TRUE(seen == std::set({ours, theirs})) << "a mixture, or half a file";

    const std::string odd = folder / "Entw\xFCrfe.plist";  // not in UTF-8
    EXPECT_TRUE(write(Owned<CFURLRef>::Adopt(
        CFURLCreateFromFileSystemRepresentation(nullptr, reinterpret_cast<const UInt8*>(odd.data()),
                                                static_cast<CFIndex>(odd.size()), false))));
    EXPECT_EQ(ReadFile(odd), "new");
    EXPECT_EQ(std::filesystem::status(odd).permissions(), std::filesystem::perms(0600));

    std::filesystem::create_directories(folder / "in the way/kept");
    EXPECT_FALSE(write(FileURL(folder / "in the way")));
    EXPECT_FALSE(write(FileURL(folder / "no/file")));
    EXPECT_EQ(error, ENOENT);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 3)
        << "a temporary file was left behind";

    mkfifo((folder / "pipe").c_str(), 0600);
    for (const auto& [name, expected] :
         {std::pair{"pipe", EINVAL}, {"in the way", EISDIR}, {"missing", ENOENT}}) {
        Owned<CFDataRef> read;
        EXPECT_FALSE(CFURLCreateDataAndPropertiesFromResource(nullptr, FileURL(folder / name),
                                                              read.adopt(), &error));
        EXPECT_EQ(error, expected) << name;
    }
}

TEST(Bundles, LookTextsUpInTheUsersLanguages) {
    const auto bundle = Owned<CFBundleRef>::Adopt(OpenBundle(WriteBundle(
        MakeFolder("bundle"), "Texts", "test.texts",
        {{"Resources/en.lproj/Localizable.strings", "\"a\"=\"en\"; \"b\"=\"en\"; \"c\"=\"en\";"},
         {"Resources/de.lproj/Localizable.strings", "\"a\"=\"de\"; \"b\"=\"de\";"},
         {"Resources/de-AT.lproj/Localizable.strings", "\"a\"=\"at\";"},
         {"Resources/de.lproj/Help/index.htm", "de"},
         {"Resources/plain.txt", "plain"}})));
    const std::tuple<const char*, const char*, const char*> rows[] = {{"de_AT", "a", "at"},
                                                                      {"de_AT", "b", "de"},
                                                                      {"de_AT", "c", "en"},
                                                                      {"fr:de", "b", "de"},
                                                                      {"../../etc", "b", "en"}};
    for (const auto& [languages, key, text] : rows) {
        setenv("LANGUAGE", languages, 1);
        EXPECT_EQ(TakeText(CFBundleCopyLocalizedString(bundle, String(key), nullptr, nullptr)),
                  text);
    }
    setenv("LANGUAGE", "", 1);
    const auto resource = [&](CFStringRef name, CFStringRef type) {
        return Owned<CFURLRef>::Adopt(CFBundleCopyResourceURL(bundle, name, type, nullptr));
    };
    EXPECT_TRUE(resource(CFSTR("plain"), CFSTR("txt")));
    EXPECT_FALSE(resource(CFSTR("../Info"), CFSTR("plist")));
    EXPECT_FALSE(resource(CFSTR("Help"), nullptr)) << "no English help";
}

}  // namespace
}  // namespace kalmo::test
