// What a host brings: guarded wheels, help, modal loops, notices.
#include "interface.h"
#include "support/window_walk.h"

namespace kalmo::test {
namespace {

TEST(WheelGuard, ScrollsThePaneInsteadOfChangingAnUnfocusedNumber) {
    InstallWheelGuard();
    InstallWheelGuard();
    QScrollArea area;
    auto* const content = new QWidget;
    content->resize(100, 1000);
    auto* const spin = new QSpinBox(content);
    auto* const other = new QLineEdit(content);
    spin->setValue(5);
    other->move(0, 50);
    area.setWidget(content);
    area.resize(120, 200);
    Activate(area);
    const auto wheel = [&] {
        QWheelEvent event({5, 5}, spin->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);  // only then it goes on to the views behind
        qApp->notify(spin, &event);
    };
    other->setFocus();
    wheel();
    EXPECT_EQ(spin->value(), 5);
    EXPECT_GT(area.verticalScrollBar()->value(), 0);
    area.verticalScrollBar()->setValue(0);
    spin->setFocus();
    wheel();
    EXPECT_EQ(spin->value(), 4);
}

/// A book of three pages beside a file that does not belong to it.
struct HelpBook : testing::Test {
    void SetUp() override {
        std::filesystem::create_directories(folder / "book/sub");
        WriteFile(folder / "outside.htm", "<p>outside</p>");
        WriteFile(folder / "book/index.htm", "<a href=\"sub/page.htm#there\">x</a>");
        WriteFile(folder / "book/sub/page.htm",
                  "<a href=\"../../outside.htm\">out</a><p id=\"there\">there</p>");
    }
    void TearDown() override { delete viewer(); }

    OSStatus show(const char* page, CFStringRef anchor = nullptr) {
        return WindowPresence(texts).helpPage(String((folder / page).string()), anchor);
    }
    static QWidget* viewer() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->inherits("toolbox::HelpViewer")) return widget;
        return nullptr;
    }
    static QTextBrowser& pages() { return *viewer()->findChild<QTextBrowser*>(); }

    std::filesystem::path folder = MakeFolder("help");
    HelpViewerTexts texts = {.title = "Hilfe",
                             .page = "Hilfeseite",
                             .back = "&Zurück",
                             .forward = "&Vor",
                             .contents = "&Inhalt"};
};

TEST_F(HelpBook, ShowsPagesOfTheBookAndNothingElseInTheLanguageOfItsProgram) {
    EXPECT_EQ(show("book/none.htm"), fnfErr);
    ASSERT_EQ(show("book/sub/page.htm", CFSTR("there")), noErr);
    EXPECT_EQ(pages().source().fragment(), "there");
    EXPECT_EQ(MnemonicTexts(*viewer()), (std::vector<std::string>{"&Zurück", "&Vor", "&Inhalt"}));
    EXPECT_EQ(viewer()->windowTitle() + pages().accessibleName(), "HilfeHilfeseite");
    EXPECT_EQ(WindowFaults(*viewer(), Identities::notNeeded), std::vector<std::string>());
    const QUrl page = pages().source();
    for (const char* link : {"../../outside.htm", "http://localhost/", "file:///etc/passwd"}) {
        SCOPED_TRACE(link);
        Q_EMIT pages().anchorClicked(QUrl(link));
        EXPECT_EQ(pages().source().adjusted(QUrl::RemoveFragment),
                  page.adjusted(QUrl::RemoveFragment));
    }
    Q_EMIT pages().anchorClicked(QUrl("../index.htm"));
    EXPECT_EQ(pages().source().fileName(), "index.htm");
    const QWidget* const first = viewer();
    show("book/index.htm");
    EXPECT_EQ(viewer(), first);
    ASSERT_TRUE(QTest::qWaitForWindowActive(viewer()));
    QTest::keyClick(viewer(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([] { return pages().source().fileName() == "page.htm"; }));
}

/// A dialog under a Presence with windows.
struct ModalLoops : testing::Test {
    ModalLoops() { InstallPresence(WindowPresence()); }

    Interface interface {
        WindowFile("<layout class=\"QVBoxLayout\"><item><layout class=\"QHBoxLayout\"><item>" +
                   WidgetText("QComboBox", 1) + "</item></layout></item></layout>")
    };
    ModalDriver driver;
};

TEST_F(ModalLoops, WindowHasRoomForWhatCameIntoItSinceItWasLoaded) {
    auto& popup = *interface.widget<QComboBox>(1);
    popup.addItem("What a popup shows must not be cut");
    driver.expect([&popup](QWidget& window) {
        EXPECT_GE(popup.width(), popup.sizeHint().width());
        window.close();
    });
    EXPECT_EQ(RunAppModalLoopForWindow(interface.window, nullptr), kModalCancel);
}

TEST_F(ModalLoops, WindowMayGoWhileItsCallerStillWaits) {
    driver.expect([this](QWidget&) {
        DisposeWindow(std::exchange(interface.window, nullptr));
        EXPECT_FALSE(QApplication::activeModalWidget());
        EXPECT_TRUE(CallersWaitForUser());
    });
    EXPECT_EQ(RunAppModalLoopForWindow(interface.window, nullptr), kModalCancel);
    EXPECT_FALSE(CallersWaitForUser());
}

TEST_F(ModalLoops, NoticesAndAlertsShowTheirTextsAsWritten) {
    driver.expect([](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_EQ(box.text(), "<Head>");
        EXPECT_EQ(box.informativeText(), "a &lt;b&gt;b&lt;/b&gt;");
        QTest::keyClick(&box, Qt::Key_Return);
    });
    ShowNotice(CFSTR("<Head>"), CFSTR("a <b>b</b>"));
    AlertTexts texts{CFSTR("Print?"), CFSTR("All"), CFSTR("Yes"), CFSTR("No")};
    for (const bool destroys : {false, true}) {
        texts.alternateDestroys = destroys;
        driver.expect([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
        EXPECT_EQ(CurrentPresence().alert(texts), destroys) << "Escape does no harm";
    }
}

TEST_F(ModalLoops, FieldThatANoticeLeadsBackToTellsWhatIsWrong) {
    QWidget window;
    QLineEdit field(&window);
    field.setAccessibleDescription("1-3, 5");
    for (const QString fault : {"Too long", "Too short"}) {
        Activate(window);
        driver.expect([](QWidget& notice) { QTest::keyClick(&notice, Qt::Key_Return); });
        ShowNotice(CFSTR("Name"), fault == "Too long" ? CFSTR("Too long") : CFSTR("Too short"));
        field.setFocus();
        EXPECT_TRUE(QTest::qWaitFor([&] { return field.accessibleDescription() == fault; }));
    }
    QTest::keyClick(&field, Qt::Key_A);
    EXPECT_EQ(field.accessibleDescription(), "1-3, 5");
}

}  // namespace
}  // namespace kalmo::test
