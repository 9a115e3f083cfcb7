// The whole window, used as people use it: by keyboard, by dropping a document, by looking at it.
#include "print_dialog/print_window.h"

#include "print_dialog/shown_window.h"
#include "print_dialog/summary_dialog.h"
#include "support/dead_servers.h"
#include "support/window_walk.h"

namespace kalmo::test {
namespace {

struct PrintWindowTest : testing::Test, WindowInFront {
    void open() { WindowInFront::open(commandLine_); }
    /// With the Tab key alone.
    void tabTo(QWidget* control) {
        ASSERT_NE(control, nullptr);
        for (int key = 0; key < 80 && window_->focusWidget() != control; ++key) press(Qt::Key_Tab);
        ASSERT_EQ(window_->focusWidget(), control) << "the Tab key does not lead there";
    }
    void press(Qt::Key key) {
        QTest::keyClick(window_->focusWidget() ? window_->focusWidget() : window_.get(), key);
    }
    std::set<std::string> files() const { return FilesIn(commandLine_.output); }
    void choosePanel(int item) {
        window_->findChild<ExtrasButton*>()->menu()->actions()[item]->trigger();
    }
    /// What the living pane was asked for beside its own four panels.
    static std::string offered() {
        static const auto bundle = OpenExtensionBundle();
        void* names = CFBundleGetDataPointerForName(bundle, CFSTR("PanelInterfaces"));
        std::string all;
        for (auto** name = static_cast<CFStringRef*>(names) + 4; *name; ++name)
            all += CFStringToUTF8(*name) + " ";
        return all;
    }
    /// A queue of the printer that is open, on the server that CUPS_SERVER names.
    void addQueue() {
        auto* destination = window_->findChild<DestinationChoice*>();
        destination->setQueues({{Destination::Kind::queue, "kalmo-office-color", "Office", {}}},
                               {});
        destination->chooseQueue("kalmo-office-color");
    }

    CommandLine commandLine_ = SampleJob(5);
};

TEST_F(PrintWindowTest, PrintsByKeyboardAlone) {
    open();
    tabTo(copies());
    QTest::keyClicks(window_->focusWidget(), "3");
    auto* range = window_->findChild<PagesChoice*>()->findChild<QLineEdit*>();
    tabTo(range);
    QTest::keyClicks(range, "2-9");
    EXPECT_FALSE(print()->isEnabled());
    press(Qt::Key_Return);
    QTest::qWait(50);
    EXPECT_TRUE(window_->isVisible() && files().empty()) << "what cannot be is not printed";
    QTest::keyClicks(range, "\b4");
    auto* selector = window_->findChild<QComboBox*>("panelSelector");
    tabTo(selector);
    press(Qt::Key_End);
    QTest::keyClick(selector->view(), Qt::Key_Return);
    EXPECT_EQ(selector->currentIndex(), selector->count() - 1) << "the last panel";
    ModalDriver nothingModal;
    tabTo(button("&Help"));
    press(Qt::Key_Return);
    expectPrinted();
    EXPECT_EQ(files(), (std::set<std::string>{"report.pdf", "report.ticket.plist"}));
    std::vector<PageSize> printed;
    const auto document = std::filesystem::path(commandLine_.output) / "report.pdf";
    EXPECT_TRUE(InspectDocument(document, &printed));
    EXPECT_EQ(printed.size(), 3u) << "pages 2 to 4";
}

TEST_F(PrintWindowTest, TheSummaryTellsWhatTheWindowShows) {
    open();
    Pick(*sides(), sides()->itemText(1));
    copies()->setValue(2);
    QString told;
    ModalDriver driver;
    driver.expect([&](QWidget& dialog) {
        told = dynamic_cast<SummaryDialog&>(dialog).text();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    QTest::keyClick(window_.get(), Qt::Key_I, Qt::ControlModifier);
    ASSERT_TRUE(Wait([&] { return driver.done(); })) << "a shortcut presses after a moment";
    EXPECT_TRUE(told.contains("report.pdf, 5 pages") && told.contains(": 3 a copy, 6 in all"))
        << told.toStdString();
    EXPECT_EQ(sides()->currentIndex(), 1) << "the pane keeps what it shows";
}

TEST_F(PrintWindowTest, EscapeCancelsTheSendingAndThenTheDialog) {
    const DeadServer server(Silence::silent);
    open();
    addQueue();
    tabTo(print());
    press(Qt::Key_Space);
    EXPECT_FALSE(print()->isEnabled());
    EXPECT_TRUE(window_->findChild<QProgressBar*>()->isVisible());
    press(Qt::Key_Escape);
    waitToPrint();
    EXPECT_TRUE(window_->isVisible()) << "only the sending was cancelled";
    EXPECT_FALSE(window_->findChild<QProgressBar*>()->isVisible());
    EXPECT_EQ(window_->focusWidget(), print());
    press(Qt::Key_Escape);
    EXPECT_FALSE(window_->isVisible());
    EXPECT_EQ(window_->exitCode(), kExitCancelled);
    EXPECT_TRUE(files().empty());
    EXPECT_TRUE(WaitForDeliveries(20000));
}

TEST_F(PrintWindowTest, AFailureIsSaidAndTheDialogStays) {
    const auto whole = ReadFile(commandLine_.document);  // cut, it can still be shown
    WriteFile(commandLine_.document, whole.substr(0, whole.rfind("startxref")));
    open();
    for (const char* named : {"report.pdf: ", "missing"}) {
        print()->click();
        ASSERT_TRUE(Wait([&] { return !fault().isEmpty(); }));
        EXPECT_TRUE(fault().contains(named)) << fault().toStdString();
        EXPECT_TRUE(window_->isVisible() && print()->isEnabled());
        window_->findChild<DestinationChoice*>()->setFolder(commandLine_.output + "/missing");
    }
}

TEST_F(PrintWindowTest, PrintsADroppedDocument) {
    commandLine_.document.clear();
    window_ = std::make_unique<PrintWindow>(commandLine_);
    ASSERT_EQ(window_->prepare(), kExitDone);
    window_->show();
    EXPECT_FALSE(print()->isEnabled());
    EXPECT_TRUE(button("Open &document…")->isVisible());
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(WriteDocument({kLandscapePage}, "dropped.pdf").c_str())});
    QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window_.get(), &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window_.get(), &drop);
    waitToPrint();
    EXPECT_TRUE(window_->windowTitle().contains("dropped.pdf"));
    EXPECT_EQ(window_->findChild<SettingsForm*>()->settings().orientation, Orientation::landscape);
    print()->click();
    expectPrinted();
    EXPECT_EQ(files(), (std::set<std::string>{"dropped.pdf", "dropped.ticket.plist"}));
}

TEST_F(PrintWindowTest, AnotherMakersPrinterPrintsWithoutPane) {
    commandLine_.ppd = WritePPD("Somebody Else").string();
    open();
    bool said = false;
    for (const auto* label : window_->findChild<PaneView*>()->findChildren<QLabel*>())
        said = said || (label->isVisible() && label->text().contains("not a Kalmo printer"));
    EXPECT_TRUE(said);
    for (const QWidget* part : {static_cast<QWidget*>(window_->findChild<PaneView*>()),
                                static_cast<QWidget*>(window_->findChild<SendingBar*>())})
        for (const auto* label : part->findChildren<QLabel*>())
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << "names of a server's stand there";
    EXPECT_EQ(window_->findChild<QComboBox*>("panelSelector"), nullptr);
    print()->click();
    expectPrinted();
    EXPECT_EQ(files(), (std::set<std::string>{"report.pdf"})) << "no ticket for that printer";
}

TEST_F(PrintWindowTest, ChosenPanelsJoinThePaneAtOnceAndAtTheNextStart) {
    open();
    choose("Advanced");
    choosePanel(1);
    EXPECT_EQ(offered(), "GetJobNotesPanelInterface ");
    EXPECT_EQ(popup("Advanced")->currentText(), "Advanced") << "the shown panel stays";
    QDialog dialog;
    dialog.open();
    choosePanel(0);  // as assistive technology can
    EXPECT_EQ(offered(), "GetJobNotesPanelInterface ") << "not under an open dialog";
    dialog.accept();
    const auto both = "_GetSpecialPagesPanelInterface GetJobNotesPanelInterface ";
    EXPECT_TRUE(Wait([&] { return offered() == both; }));
    window_.reset();
    open();
    EXPECT_EQ(offered(), both);
}

TEST_F(PrintWindowTest, ADocumentReachesThePaneAfterItsDialogIsAnswered) {
    commandLine_.document = WriteDocument({kLandscapePage}, "slow.pdf").string();
    window_ = std::make_unique<PrintWindow>(commandLine_);
    ASSERT_EQ(window_->prepare(), kExitDone);
    sides()->setCurrentIndex(1);  // unheard by the pane: gone as soon as it shows the ticket again
    window_->show();
    QDialog dialog;
    dialog.open();  // before the document has loaded
    waitToPrint();
    EXPECT_EQ(sides()->currentIndex(), 1) << "not under an open dialog";
    dialog.accept();
    EXPECT_TRUE(Wait([&] { return sides()->currentIndex() == 0; }));
    dialog.open();
    window_->openDocument(WriteDocument({kPortraitPage}, "dropped.pdf"));
    EXPECT_TRUE(window_->windowTitle().contains("slow.pdf")) << "nor another document";
    dialog.accept();
    EXPECT_TRUE(Wait([this] { return window_->windowTitle().contains("dropped.pdf"); }));
}

TEST_F(PrintWindowTest, EveryControlHasANameAndRoomForItsText) {
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QGuiApplication::setLayoutDirection(direction);
        open();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        EXPECT_EQ(WindowFaults(*window_, Identities::notNeeded), std::vector<std::string>());
        EXPECT_EQ(CutTexts(*window_), std::vector<std::string>());
        EXPECT_EQ(TabJumps(*window_), std::vector<std::string>());
        choosePanel(1);
        QTest::qWait(20);
        EXPECT_EQ(TabJumps(*window_), std::vector<std::string>()) << "with a new pane";
    }
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

}  // namespace
}  // namespace kalmo::test
