// Work that is waited for: how it ends, and what is left of it when nobody waits any more.
#include "toolbox/waiting.h"

#include <semaphore>

#include "interface.h"

namespace kalmo::test {
namespace {

const WaitTexts kTexts = {CFSTR("Asking <i>..."), CFSTR("&Stop")};

/// What work uses that ends only when it is told to.
struct Stuck {
    std::binary_semaphore free{0};
    std::atomic<bool> wasAsked = false;
};

std::function<void(std::stop_token)> WorkOf(const std::shared_ptr<Stuck>& stuck) {
    return [stuck](const std::stop_token& stop) {
        const std::stop_callback asked(stop, [&] { stuck->wasAsked = true; });
        stuck->free.acquire();
    };
}

struct Waiting : testing::Test {
    void SetUp() override {
        InstallPresence(WindowPresence());
        field.setGeometry(0, 0, 400, 300);
        Activate(field);
        QTest::mouseRelease(&field, Qt::LeftButton);  // a double click elsewhere left it down
    }

    QLineEdit field;
    ModalDriver driver;
};

TEST_F(Waiting, ShortWorkShowsNothingButHoldsTheOthersUp) {
    QTimer::singleShot(0, &field, [this] { QTest::keyClick(field.windowHandle(), Qt::Key_A); });
    EXPECT_TRUE(RunAndWait(kTexts, [](const std::stop_token&) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }));
    QTest::keyClick(field.windowHandle(), Qt::Key_B);
    EXPECT_EQ(field.text(), "b");
}

TEST_F(Waiting, TheUserGivesUpAndTheWorkKeepsWhatItUses) {
    void (*const ways[])(QWidget&) = {
        [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); },
        [](QWidget& window) {
            QTest::mouseClick(window.findChild<QPushButton*>(), Qt::LeftButton);
        },
        [](QWidget& window) { window.close(); }};
    for (const auto& way : ways) {
        Activate(field);
        const auto stuck = std::make_shared<Stuck>();
        driver.expect([this, way](QWidget& window) {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
            EXPECT_EQ(window.accessibleName(), "Asking <i>...");
            EXPECT_LT((window.geometry().center() - field.geometry().center()).manhattanLength(),
                      3);
            EXPECT_EQ(window.focusWidget(), window.findChild<QPushButton*>());
            way(window);
        });
        EXPECT_FALSE(RunAndWait(kTexts, WorkOf(stuck)));
        EXPECT_TRUE(stuck->wasAsked);
        EXPECT_EQ(stuck.use_count(), 2);
        stuck->free.release();
        EXPECT_TRUE(Wait([&] { return stuck.use_count() == 1; }));
    }
}

TEST_F(Waiting, AProgramThatQuitsDoesNotWait) {
    const auto stuck = std::make_shared<Stuck>();
    QTimer::singleShot(50, qApp, &QApplication::quit);
    QTimer::singleShot(0, qApp, [&] { EXPECT_FALSE(RunAndWait(kTexts, WorkOf(stuck))); });
    QApplication::exec();
    EXPECT_TRUE(stuck->wasAsked);
    stuck->free.release();
}

/// Before anything is destroyed that the work may use.
TEST_F(Waiting, AProgramEndsAtOnceWithWorkLeftOver) {
    const auto leaveWork = [this] {
        std::atexit([] { _exit(1); });
        driver.expect([](QWidget& window) { window.close(); });
        (void)RunAndWait(kTexts, WorkOf(std::make_shared<Stuck>()));
        std::exit(7);
    };
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // the program is started anew
    EXPECT_EXIT(leaveWork(), testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace kalmo::test
