#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "interface.h"
#include "support/modal_driver.h"
#include "toolbox/menus.h"

namespace kalmo::test {
namespace {

/// A dialog with OK and Cancel by command, under a Presence with windows.
class ModalLoops : public testing::Test {
protected:
    void SetUp() override {
        InstallPresence(WindowPresence());
        ASSERT_EQ(interface.open(), noErr);
    }
    void TearDown() override { InstallPresence(UnattendedPresence()); }

    Interface interface {
        WindowFile(Geometry(0, 0, 200, 100) +
                   WidgetText("QPushButton", 1,
                              StringProperty("command", "ok  ") +
                                  "<property name=\"default\"><bool>true</bool></property>") +
                   WidgetText("QPushButton", 2, StringProperty("command", "not!")) +
                   WidgetText("QLineEdit", 3))
    };
    ModalDriver driver;
};

TEST_F(ModalLoops, EndAsTheUserAnswers) {
    const struct {
        const char* why;
        ModalDriver::Answer answer;
        SInt32 result;
    } cases[] = {
        {"Return in a field",
         [](QWidget& window) { QTest::keyClick(window.findChild<QLineEdit*>(), Qt::Key_Return); },
         kModalOK},
        {"Escape", [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }, kModalCancel},
        {"the close box", [](QWidget& window) { window.close(); }, kModalCancel},
        {"a result of its own",
         [](QWidget& window) { QuitAppModalLoopForWindow(WindowFromWidget(&window), 77); }, 77},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        driver.expect(row.answer);
        EXPECT_EQ(RunAppModalLoopForWindow(interface.window, nullptr), row.result);
        EXPECT_FALSE(interface.windowWidget()->isVisible());
    }
    EXPECT_TRUE(driver.done()) << driver.faults().join('\n').toStdString();
}

TEST_F(ModalLoops, AHandlerMayKeepTheDialogOpen) {
    std::string record;
    Recorder keeper{'k', &record, noErr};
    InstallWindowEventHandler(interface.window, Recorder::Handle, 1, &kCommand, &keeper, nullptr);
    driver.expect([](QWidget& window) {
        QTest::keyClick(&window, Qt::Key_Return);
        QTest::keyClick(&window, Qt::Key_Escape);
        QuitAppModalLoopForWindow(WindowFromWidget(&window), 5);
    });
    EXPECT_EQ(RunAppModalLoopForWindow(interface.window, nullptr), 5);
    EXPECT_EQ(record, "kk");
}

TEST_F(ModalLoops, WindowMayGoWhileItRuns) {
    driver.expect([this](QWidget&) { DisposeWindow(std::exchange(interface.window, nullptr)); });
    EXPECT_EQ(RunAppModalLoopForWindow(interface.window, nullptr), kModalCancel);
}

TEST_F(ModalLoops, NoticesAndAlertsShowTheirTextsAsWritten) {
    driver.expect([](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_EQ(box.text(), "<Head>");
        EXPECT_EQ(box.informativeText(), "a &lt;b&gt;b&lt;/b&gt;");
        QTest::keyClick(&box, Qt::Key_Return);
    });
    ShowNotice(CFSTR("<Head>"), CFSTR("a <b>b</b>"));
    const AlertTexts texts{CFSTR("Delete?"), CFSTR("All"), CFSTR("Yes"), CFSTR("No")};
    driver.expect([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
    EXPECT_FALSE(CurrentPresence().alert(texts));
    EXPECT_TRUE(driver.done());
}

}  // namespace
}  // namespace kalmo::test
