// The whole window, used as people use it: by keyboard, by dropping a document, by looking at it.
#include "print_dialog/print_window.h"

#include "print_dialog/remembered_settings.h"
#include "print_dialog/shown_window.h"
#include "print_dialog/summary_dialog.h"
#include "support/dead_servers.h"
#include "support/window_walk.h"

namespace kalmo::test {
namespace {

struct PrintWindowTest : testing::Test {
    PrintWindowTest() { InstallPresence(WindowPresence()); }

    PrintWindow& open() {
        window_ = ShowWindow(commandLine_);
        EXPECT_TRUE(Wait([this] { return button("&Print")->isEnabled(); }));
        return *window_;
    }
    QPushButton* button(const char* text) const { return ButtonWith(*window_, text); }
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
    ExtrasButton* panels() const { return window_->findChild<ExtrasButton*>(); }
    void choosePanel(int item) { panels()->menu()->actions()[item]->trigger(); }
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
    std::unique_ptr<PrintWindow> window_;
};

TEST_F(PrintWindowTest, PrintsByKeyboardAlone) {
    open();
    tabTo(window_->findChild<QSpinBox*>());
    QTest::keyClicks(window_->focusWidget(), "3");
    auto* range = window_->findChild<PagesChoice*>()->findChild<QLineEdit*>();
    tabTo(range);
    QTest::keyClicks(range, "2-9");
    EXPECT_FALSE(button("&Print")->isEnabled());
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
    ASSERT_TRUE(Wait([this] { return !window_->isVisible(); }));
    EXPECT_EQ(window_->exitCode(), kExitDone);
    EXPECT_EQ(files(), (std::set<std::string>{"report.pdf", "report.ticket.plist"}));
    std::vector<PageSize> printed;
    const auto document = std::filesystem::path(commandLine_.output) / "report.pdf";
    EXPECT_TRUE(InspectDocument(document, &printed));
    EXPECT_EQ(printed.size(), 3u) << "pages 2 to 4";
}

TEST_F(PrintWindowTest, TheSummaryTellsWhatTheWindowShows) {
    open();
    auto* sides = window_->findChild<QComboBox*>("sides");
    Pick(*sides, sides->itemText(1));
    window_->findChild<QSpinBox*>()->setValue(2);
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
    EXPECT_EQ(sides->currentIndex(), 1) << "the pane keeps what it shows";
}

TEST_F(PrintWindowTest, EscapeCancelsTheSendingAndThenTheDialog) {
    const DeadServer server(Silence::silent);
    open();
    addQueue();
    tabTo(button("&Print"));
    press(Qt::Key_Space);
    EXPECT_FALSE(button("&Print")->isEnabled());
    EXPECT_TRUE(window_->findChild<QProgressBar*>()->isVisible());
    press(Qt::Key_Escape);
    ASSERT_TRUE(Wait([this] { return button("&Print")->isEnabled(); }));
    EXPECT_TRUE(window_->isVisible()) << "only the sending was cancelled";
    EXPECT_FALSE(window_->findChild<QProgressBar*>()->isVisible());
    EXPECT_EQ(window_->focusWidget(), button("&Print"));
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
        button("&Print")->click();
        const auto* bar = window_->findChild<SendingBar*>();
        ASSERT_TRUE(Wait([&] { return !bar->fault().isEmpty(); }));
        EXPECT_TRUE(bar->fault().contains(named)) << bar->fault().toStdString();
        EXPECT_TRUE(window_->isVisible() && button("&Print")->isEnabled());
        window_->findChild<DestinationChoice*>()->setFolder(commandLine_.output + "/missing");
    }
}

TEST_F(PrintWindowTest, PrintsADroppedDocument) {
    commandLine_.document.clear();
    window_ = std::make_unique<PrintWindow>(commandLine_);
    ASSERT_EQ(window_->prepare(), kExitDone);
    window_->show();
    EXPECT_FALSE(button("&Print")->isEnabled());
    EXPECT_TRUE(button("Open &document…")->isVisible());
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(WriteDocument({kLandscapePage}, "dropped.pdf").c_str())});
    QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window_.get(), &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window_.get(), &drop);
    ASSERT_TRUE(Wait([this] { return button("&Print")->isEnabled(); }));
    EXPECT_TRUE(window_->windowTitle().contains("dropped.pdf"));
    EXPECT_EQ(window_->findChild<SettingsForm*>()->settings().orientation, Orientation::landscape);
    button("&Print")->click();
    ASSERT_TRUE(Wait([this] { return !window_->isVisible(); }));
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
    button("&Print")->click();
    ASSERT_TRUE(Wait([this] { return !window_->isVisible(); }));
    EXPECT_EQ(files(), (std::set<std::string>{"report.pdf"})) << "no ticket for that printer";
}

TEST_F(PrintWindowTest, ChosenPanelsJoinThePaneAtOnceAndAtTheNextStart) {
    auto* selector = open().findChild<QComboBox*>("panelSelector");
    selector->setCurrentText("Advanced");
    Q_EMIT selector->activated(selector->currentIndex());
    choosePanel(1);
    EXPECT_EQ(offered(), "GetJobNotesPanelInterface ");
    selector = window_->findChild<QComboBox*>("panelSelector");
    EXPECT_EQ(selector->currentText(), "Advanced") << "the shown panel stays";
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

TEST_F(PrintWindowTest, AReplacedPaneNeedsNoMoreRoomThanTheFirst) {
    open();
    const auto* place = window_->findChild<PaneView*>()->findChild<QScrollArea*>();
    const QSize window = window_->size();
    const QSize first = place->widget()->minimumSizeHint();
    for (int change = 0; change < 6; ++change) {
        choosePanel(change % 2);
        QTest::qWait(20);
        EXPECT_EQ(place->widget()->minimumSizeHint(), first) << "change " << change;
        EXPECT_EQ(window_->size(), window) << "change " << change;
    }
}

TEST_F(PrintWindowTest, ADocumentReachesThePaneAfterItsDialogIsAnswered) {
    commandLine_.document = WriteDocument({kLandscapePage}, "slow.pdf").string();
    window_ = std::make_unique<PrintWindow>(commandLine_);
    ASSERT_EQ(window_->prepare(), kExitDone);
    auto* sides = window_->findChild<QComboBox*>("sides");
    sides->setCurrentIndex(1);  // unheard by the pane: gone as soon as it shows the ticket again
    window_->show();
    QDialog dialog;
    dialog.open();  // before the document has loaded
    ASSERT_TRUE(Wait([this] { return button("&Print")->isEnabled(); }));
    EXPECT_EQ(sides->currentIndex(), 1) << "not under an open dialog";
    dialog.accept();
    EXPECT_TRUE(Wait([&] { return sides->currentIndex() == 0; }));
    dialog.open();
    window_->openDocument(WriteDocument({kPortraitPage}, "dropped.pdf"));
    EXPECT_TRUE(window_->windowTitle().contains("slow.pdf")) << "nor another document";
    dialog.accept();
    EXPECT_TRUE(Wait([this] { return window_->windowTitle().contains("dropped.pdf"); }));
}

TEST_F(PrintWindowTest, PanelsOfTheCommandLineAreForOneRun) {
    const auto file = std::filesystem::path(getenv("XDG_CONFIG_HOME")) / "kalmo-print/window.conf";
    std::filesystem::create_directories(file.parent_path());
    WriteFile(file, "panels=colour, job-notes, @Variant(\\0\\0\n\xff");
    commandLine_.panels = {"special-pages", "special-pages"};
    open();
    EXPECT_EQ(offered(), "_GetSpecialPagesPanelInterface ") << "once";
    EXPECT_EQ(panels()->panels(), std::vector<std::string>{"special-pages"}) << "shown as chosen";
    EXPECT_EQ(RememberedPanels(), std::vector<std::string>{"job-notes"});
    choosePanel(0);
    EXPECT_EQ(RememberedPanels(), std::vector<std::string>()) << "now the user has chosen";
    window_.reset();
    EXPECT_EQ(offered(), "") << "for the life of a pane only";
}

TEST_F(PrintWindowTest, EveryControlHasANameAndRoomForItsText) {
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QGuiApplication::setLayoutDirection(direction);
        PrintWindow& window = open();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        EXPECT_EQ(WindowFaults(window, Identities::notNeeded), std::vector<std::string>());
        EXPECT_EQ(CutTexts(window), std::vector<std::string>());
        EXPECT_EQ(TabJumps(window), std::vector<std::string>());
        choosePanel(1);
        QTest::qWait(20);
        EXPECT_EQ(TabJumps(window), std::vector<std::string>()) << "with a new pane";
    }
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

}  // namespace
}  // namespace kalmo::test
