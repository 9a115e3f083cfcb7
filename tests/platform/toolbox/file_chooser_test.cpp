#include "toolbox/file_chooser.h"
#include "interface.h"
#include "support/modal_driver.h"

namespace kalmo::test {
namespace {

/// A folder with a picture and a text, under a Presence with windows.
class FileChooser : public testing::Test {
protected:
    void SetUp() override {
        InstallPresence(WindowPresence());
        ASSERT_EQ(interface.open(), noErr);
        interface.windowWidget()->show();
        WriteFile(folder / "Seal.pNg", "");
        WriteFile(folder / "notes.txt", "");
    }
    void TearDown() override {
        setenv("LC_ALL", "C.UTF-8", 1);
        InstallPresence(UnattendedPresence());
    }

    /// The path that was chosen, empty for none.
    std::string choose(const ModalDriver::Answer& answer) {
        driver.expect(answer);
        const auto start = String((folder / "Seal.pNg").string());
        const auto url =
            Owned<CFURLRef>::Adopt(ChooseFile(interface.window, {.title = CFSTR("Choose a picture"),
                                                                 .kind = CFSTR("Pictures"),
                                                                 .patterns = CFSTR("*.gif *.PNG"),
                                                                 .startPath = start}));
        const auto path = Owned<CFStringRef>::Adopt(url ? CFURLCopyFileSystemPath(url) : nullptr);
        EXPECT_TRUE(driver.done());
        return CFStringToUTF8(path);
    }

    std::filesystem::path folder = MakeFolder("chooser");
    Interface interface { WindowFile("") };
    ModalDriver driver;
};

TEST_F(FileChooser, BeginsAtTheFileAmongThoseOfItsKind) {
    EXPECT_EQ(choose([](QWidget& window) {
                  const auto* const files = window.findChild<QListView*>("listView");
                  EXPECT_TRUE(QTest::qWaitFor(
                      [&] { return files->model()->rowCount(files->rootIndex()) == 1; }));
                  QTest::keyClick(&window, Qt::Key_Return);
              }),
              (folder / "Seal.pNg").string());
}

TEST_F(FileChooser, OffersAllFilesInTheUsersLanguageOnly) {
    QStringList filters;
    const auto look = [&](QWidget& window) {
        filters = dynamic_cast<QFileDialog&>(window).nameFilters();
        window.close();
    };
    setenv("LC_ALL", "de_DE", 1);
    EXPECT_EQ(choose(look), "");
    EXPECT_EQ(filters.size(), 1);
    QTranslator german;
    ASSERT_TRUE(german.load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    QCoreApplication::installTranslator(&german);
    choose(look);
    EXPECT_EQ(filters.last(), "Alle Dateien (*)");
}

TEST_F(FileChooser, EndsWithItsWindow) {
    EXPECT_EQ(choose([this](QWidget&) { interface.windowWidget()->hide(); }), "");
    interface.windowWidget()->show();
    EXPECT_EQ(choose([this](QWidget&) { DisposeWindow(std::exchange(interface.window, nullptr)); }),
              "");
    EXPECT_EQ(QApplication::topLevelWidgets(), QWidgetList());
}

}  // namespace
}  // namespace kalmo::test
