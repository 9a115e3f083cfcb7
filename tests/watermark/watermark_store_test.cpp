#include "watermark/watermark_store.h"

#include <linux/capability.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <thread>

#include "support/dictionaries.h"
#include "watermark/fresh_store.h"

namespace kalmo::test {
namespace {

constexpr auto kLasting = WatermarkSave::lasting, kPassing = WatermarkSave::passing;

bool Save(const std::string& text, WatermarkSave save = kLasting, SInt32 angle = 0) {
    WatermarkHolder record;
    SetWatermarkText(record->textString, String(text));
    record->textMode = 1;
    record->angle = angle;
    return saveWatermarkData(kWatermarkStore, *record, save);
}

/// A store with a list of these elements.
void WriteList(const std::filesystem::path& file, const std::string& names) {
    WriteFile(file,
              Plist("<dict><key>WatermarkListEntries</key><array>" + names + "</array></dict>"));
}

/// With commas.
std::string ListAtStart() {
    const auto bundle = Owned<CFBundleRef>::Adopt(OpenBundle(ProductBundle()));
    const auto names = Owned<CFArrayRef>::Adopt(CopyWatermarkListAtStart(kWatermarkStore, bundle));
    return TakeText(CFStringCreateByCombiningStrings(nullptr, names, CFSTR(",")));
}

CFIndex CountStored() {
    const auto store = Owned<CFTypeRef>::Adopt(CopyXMLData(kWatermarkStore));
    return CFDictionaryGetCount(static_cast<CFDictionaryRef>(store.get()));
}

TEST(WatermarkStore, RecordComesBackWhateverElseStandsInItsEntry) {
    WatermarkHolder saved, loaded;
    setDefaultValues(*saved, 1);
    for (char* text : {saved->textString, saved->filename, saved->filePath}) std::strcpy(text, "Ä");
    saved->xOffset = 0.1F, saved->yPos = -280.627441, saved->fontColorRed = 0.7F;
    SetWatermarkGlyphs(*saved, std::initializer_list<UInt16>{1, 0xFFFF, 3});
    SetWatermarkGlyphs(*loaded, std::initializer_list<UInt16>{9});
    ASSERT_TRUE(saveWatermarkData(kFaxImageStore, *saved));
    ASSERT_TRUE(loadWatermarkData(kFaxImageStore, CFSTR("Ä"), *loaded));
    ReadWatermarkEntry(*loaded, Dictionary("angle=\"90\" xPos=true glyphCount=2 textString=1"));
    const auto before = Owned<CFTypeRef>::Adopt(CreateWatermarkEntry(*saved));
    EXPECT_TRUE(CFEqual(before, Owned<CFTypeRef>::Adopt(CreateWatermarkEntry(*loaded))));
    SetWatermarkText(loaded->filename, String(std::string(510, 'x') + "Ä"));
    EXPECT_EQ(std::strlen(loaded->filename), 510u);
    EXPECT_FALSE(loadWatermarkData(kFaxImageStore, CFSTR("ä"), *loaded));
    EXPECT_EQ(std::memcmp(loaded.get(), WatermarkHolder().get(), sizeof *loaded), 0);
}

TEST(WatermarkStore, StartsWithTheDefaultsAndDropsAnEmptyFirstNameInMemoryOnly) {
    const auto file = FreshStore();
    EXPECT_EQ(ListAtStart(), "Draft,Confidential,Copy");
    WriteList(file, "<string>gone</string><true/><string>lost</string>");
    EXPECT_EQ(ListAtStart(), "lost");
    EXPECT_NE(ReadFile(file).find("gone"), std::string::npos);
}

TEST(WatermarkStore, RemovesTheFirstEqualNameAndNeverTheList) {
    const auto file = FreshStore();
    Save("makes the folder");
    WriteList(file, "<string>b</string><string>A</string><string>a</string><string>a</string>");
    Save("a");
    EXPECT_TRUE(removeWatermarkData(kWatermarkStore, CFSTR("a")));
    // The list's key is no name: neither a watermark nor its removal may take the list away.
    EXPECT_FALSE(Save("WatermarkListEntries"));
    EXPECT_FALSE(removeWatermarkData(kWatermarkStore, CFSTR("WatermarkListEntries")));
    EXPECT_EQ(ListAtStart(), "A,a");
    EXPECT_EQ(CountStored(), 1);
}

/// A save tells its error (after `told`) and leaves the old file.
void ExpectFailure(const std::filesystem::path& file, const std::string& told,
                   int error = EBADMSG) {
    const std::string before = ReadFile(file);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(Save("b"));
    EXPECT_EQ(
        testing::internal::GetCapturedStderr(),
        told + "saveWatermarkData: Error " + std::to_string(error) + " writing data to file\n");
    EXPECT_EQ(ReadFile(file), before);
}

TEST(WatermarkStore, NeverWritesOverAFileThatIsNoStore) {
    const auto file = FreshStore();
    Save("a");
    WriteFile(file, Plist("<array/>"));
    ExpectFailure(file, "");
    WriteFile(file, Plist("<dict>"));
    ExpectFailure(file, "CopyXMLData()::CFPropertyListCreateFromXMLData() error: cut short\n");
    EXPECT_EQ(ListAtStart(), "");
    EXPECT_EQ(ReadFile(file), Plist("<dict>"));
}

TEST(WatermarkStore, FullDiskAndReadOnlyFolderLeaveTheOldFile) {
    const auto file = FreshStore();
    Save("a");
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit full{200, RLIM_INFINITY}, before{RLIM_INFINITY, RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &full);
    ExpectFailure(file, "", EFBIG);
    setrlimit(RLIMIT_FSIZE, &before);
    std::filesystem::permissions(file.parent_path(), std::filesystem::perms(0500));
    // Root may write anywhere: only this thread gives that up.
    std::thread([&] {
        __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
        __user_cap_data_struct none[2]{};
        syscall(SYS_capset, &header, none);
        ExpectFailure(file, "", EACCES);
    }).join();
    std::filesystem::permissions(file.parent_path(), std::filesystem::perms(0700));
}

TEST(WatermarkStore, ThreadsLoseNoneOfTheirSaves) {
    FreshStore();
    const auto save = [](const std::string& names) {
        for (const char name : names) Save({name}, kPassing);
    };
    std::thread other(save, "abcdefghijklm");
    save("nopqrstuvwxyz");
    other.join();
    EXPECT_EQ(CountStored(), 26);
}

TEST(WatermarkStore, SurvivesTwoHundredKillsDuringSaves) {
    FreshStore();
    Save("a");
    storeFontData(kWatermarkStore, CFSTR("font"), Data(std::string(8000, 'f')));
    CFIndex stored = 2;
    for (int kill = 0; kill < 200; ++kill) {
        const pid_t child = fork();
        for (int i = 0; child == 0; ++i)
            Save(std::to_string((kill + i) % 10), i % 8 == 7 ? kLasting : kPassing,
                 1000 * kill + i);
        usleep(static_cast<useconds_t>(2000 + 137 * kill % 9000));
        ::kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const CFIndex before = std::exchange(stored, CountStored());
        ASSERT_GE(stored, before) << "torn or lost after kill " << kill;
    }
    EXPECT_EQ(stored, 12) << "the children came to save";
}

}  // namespace
}  // namespace kalmo::test
