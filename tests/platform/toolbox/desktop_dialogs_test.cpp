// What opens a dialog of Qt's own: color wells and the choice of a file.
#include "interface.h"
#include "toolbox/file_chooser.h"

namespace kalmo::test {
namespace {

class DesktopDialogs : public testing::Test {
protected:
    void SetUp() override {
        InstallPresence(WindowPresence());
        interface.windowWidget()->show();
    }

    void pressWell(const ModalDriver::Answer& answer) {
        driver.expect(answer);
        QTest::keyClick(interface.widget(1), Qt::Key_Return);
    }
    Owned<CFURLRef> chooseFile(const ModalDriver::Answer& answer, CFStringRef start = nullptr) {
        driver.expect(answer);
        return Owned<CFURLRef>::Adopt(
            ChooseFile(interface.window, {.patterns = CFSTR("*.gif *.PNG"), .startPath = start}));
    }

    Interface interface { WindowFile(WidgetText("ColorWell", 1)) };
    ModalDriver driver;
};

TEST_F(DesktopDialogs, AnotherColorIsAHitAndTheSameLeavesAllAsItWas) {
    const ControlRef well = interface.control(1);
    const Heard hits(well);
    SetControlColor(well, {0.3F, -1, 0.1F, 0.75F});
    EXPECT_EQ(interface.widget(1)->accessibleDescription(), "#4D001A, 75 %");
    pressWell([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); });
    EXPECT_EQ(GetControlColor(well).red, 0.3F);
    EXPECT_EQ(hits.record, "");
    pressWell([](QWidget& window) {
        dynamic_cast<QColorDialog&>(window).setCurrentColor(QColor(255, 0, 0, 51));
        QTest::keyClick(&window, Qt::Key_Return);
    });
    EXPECT_EQ(GetControlColor(well).alpha, 0.2F);
    EXPECT_EQ(hits.record, "h");
}

TEST_F(DesktopDialogs, ChooserBeginsAtTheFileAmongThoseOfItsKind) {
    setenv("LC_ALL", "de_DE", 1);  // Qt is not told of it here, and has no German to offer
    const auto folder = MakeFolder("chooser");
    for (const char* name : {"Seal.pNg", "notes.txt"}) WriteFile(folder / name, "");
    const auto accept = [](QWidget& window) {
        const auto* const files = window.findChild<QListView*>("listView");
        EXPECT_TRUE(
            QTest::qWaitFor([files] { return files->model()->rowCount(files->rootIndex()) == 1; }));
        EXPECT_EQ(dynamic_cast<QFileDialog&>(window).nameFilters().size(), 1);
        QTest::keyClick(&window, Qt::Key_Return);
    };
    EXPECT_TRUE(chooseFile(accept, String((folder / "Seal.pNg").string())));
}

TEST_F(DesktopDialogs, EndWithTheirWindow) {
    EXPECT_FALSE(chooseFile([this](QWidget&) { interface.windowWidget()->hide(); }));
    interface.windowWidget()->show();
    pressWell([this](QWidget&) { DisposeWindow(std::exchange(interface.window, nullptr)); });
    EXPECT_TRUE(driver.done());
    EXPECT_EQ(QApplication::topLevelWidgets(), QWidgetList());
}

}  // namespace
}  // namespace kalmo::test
