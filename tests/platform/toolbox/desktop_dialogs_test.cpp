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

TEST_F(DesktopDialogs, EndWithTheirWindow) {
    driver.expect([this](QWidget&) { interface.windowWidget()->hide(); });
    EXPECT_EQ(ChooseFile(interface.window, {.patterns = CFSTR("*.gif")}), nullptr);
    interface.windowWidget()->show();
    pressWell([this](QWidget&) { DisposeWindow(std::exchange(interface.window, nullptr)); });
    EXPECT_TRUE(driver.done());
    EXPECT_EQ(QApplication::topLevelWidgets(), QWidgetList());
}

}  // namespace
}  // namespace kalmo::test
