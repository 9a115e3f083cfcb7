// The window against a real CUPS server: finding printers, changing them, printing.
#include "print_dialog/shown_window.h"
#include "programs/private_cupsd.h"
#include "support/dead_servers.h"
#include "support/pane_dialog.h"
#include "support/ticket_files.h"

namespace kalmo::test {
namespace {

constexpr char kPasscode[] = "8264019375";

struct PrintWindowQueueTest : QueueTest {
    void SetUp() override {
        InstallPresence(WindowPresence());
        QueueTest::SetUp();
        setenv("XDG_CONFIG_HOME", MakeFolder("config").c_str(), 1);
        open({.document = document.string(), .printer = "kalmo"});
    }
    void open(const CommandLine& commandLine) {
        window_ = ShowWindow(commandLine);
        window_->findPrinters();
        ASSERT_TRUE(
            Wait([this] { return print()->isEnabled() && hasPane() && popupWith("other"); }));
    }
    QPushButton* print() const { return ButtonWith(*window_, "&Print"); }
    [[nodiscard]] bool hasPane() const {
        const auto* selector = window_->findChild<QComboBox*>("panelSelector");
        return selector && selector->isVisible();
    }
    [[nodiscard]] QComboBox* popupWith(const QString& text) const {
        return PopupWith(*window_, text);
    }
    /// In a popup of the window, as a person does it.
    void choose(const QString& text) {
        QComboBox* const popup = popupWith(text);
        ASSERT_NE(popup, nullptr) << text.toStdString();
        Pick(*popup, text);
    }

    static void enterPasscode(QWidget& dialog) {
        for (const SInt32 field : {111, 121})
            QTest::keyClicks(FindControl<QLineEdit>(dialog, 'KPDE', field), kPasscode);
        FindControl<QPushButton>(dialog, 'KPDE', 901)->click();
    }
    /// Each press is answered by one window, and nothing is printed.
    void pressPrintInVain() {
        for (int press = 0; press < 2; ++press) {
            driver_.expect([](QWidget& notice) { notice.close(); });
            print()->click();
            EXPECT_TRUE(driver_.done() && window_->isVisible() && print()->isEnabled());
        }
        EXPECT_TRUE(JobsOnTheServer().empty());
    }
    void printJob() {
        print()->click();
        ASSERT_TRUE(Wait([this] { return !window_->isVisible(); }));
        EXPECT_EQ(window_->exitCode(), kExitDone);
        EXPECT_TRUE(server.printed(1));
    }

    std::unique_ptr<PrintWindow> window_;
    ModalDriver driver_;
};

TEST_F(PrintWindowQueueTest, WhatIsChosenReachesTheQueueAndComesBack) {
    const std::pair<const char*, const char*> rows[] = {
        {"Letter", "PageSize=Letter"},
        {"2", "number-up=2"},
        {"2-sided, flip on short edge", "Duplex=DuplexTumble"},
        {"3 holes", "KLPunch=3HolePunch"},
        {"Finisher tray", "OutputBin=Finisher"},
        {"", "com.kalmo.print.ticket=sha256-"},
    };
    for (const auto& [text, option] : rows)
        if (*text) choose(text);
    window_->findChild<QSpinBox*>()->setValue(3);
    printJob();
    const std::string told = server.attributes(1, "alice");
    for (const auto& [text, option] : rows)
        EXPECT_TRUE(Contains(told, option)) << option << '\n' << told;

    open({.document = document.string()});
    const auto* presets = window_->findChild<PresetChoice*>()->list();
    EXPECT_TRUE(Wait([&] { return presets->currentText() == "Last used"; }));
    EXPECT_EQ(popupWith(rows[2].first)->currentText(), rows[2].first);
    EXPECT_EQ(window_->findChild<QSpinBox*>()->value(), 1) << "copies are of one job";
    choose("other");
    ASSERT_TRUE(Wait([this] { return print()->isEnabled(); }));
    choose("kalmo");
    ASSERT_TRUE(Wait([this] { return hasPane() && print()->isEnabled(); }));
    EXPECT_EQ(popupWith(rows[2].first)->currentText(), rows[2].first);
}

TEST_F(PrintWindowQueueTest, SecurePrintHoldsTheWindowUntilThereIsAPasscode) {
    driver_.expect([](QWidget& dialog) { dialog.close(); });
    choose("Secure print");
    pressPrintInVain();
    driver_.expect(enterPasscode);
    FindControl<QPushButton>(*window_, 'KPpo', 103)->click();
    printJob();
    const WrittenTicket arrived(ReadFile(out / "ticket"));
    const auto* job = arrived.value("PrintSettings", "com.kalmo.print.JobType");
    const auto* passcode =
        CFDictionaryGetValue(static_cast<CFDictionaryRef>(job), CFSTR("SecurePrintPassword"));
    EXPECT_EQ(CFStringToUTF8(static_cast<CFStringRef>(passcode)), kPasscode);
}

TEST_F(PrintWindowQueueTest, AFaxHoldsTheWindowUntilItHasARecipient) {
    driver_.expect([](QWidget& setup) { setup.close(); });
    choose("Fax");
    pressPrintInVain();
    driver_.expect([this](QWidget& setup) {
        driver_.expect([](QWidget& recipient) {
            QTest::keyClicks(FindControl<QLineEdit>(recipient, 'KPDE', 201), "Mia");
            QTest::keyClicks(FindControl<QLineEdit>(recipient, 'KPDE', 211), kPasscode);
            FindControl<QPushButton>(recipient, 'KPDE', 901)->click();
        });
        FindControl<QAbstractButton>(setup, 'KPDE', 201)->click();
        FindControl<QPushButton>(setup, 'KPDE', 901)->click();
    });
    print()->click();
    EXPECT_TRUE(window_->isVisible()) << "the press was for the setup";
    printJob();
    const std::string arrived = ReadFile(out / "ticket");
    EXPECT_TRUE(Contains(arrived, kPasscode) && Contains(arrived, "SendSpeed")) << arrived;
    EXPECT_EQ(server.leaks(1, kPasscode), "");
}

TEST_F(PrintWindowQueueTest, AServerThatComesBackIsFoundWhereThePrintersAreListed) {
    auto dead = std::make_unique<DeadServer>(Silence::closedPort);
    window_ = ShowWindow({.document = document.string()});
    window_->findPrinters();
    ASSERT_TRUE(Wait([this] { return print()->isEnabled(); })) << "on the folder";
    EXPECT_EQ(popupWith("other"), nullptr);
    dead.reset();
    server.use();
    auto* list = window_->findChild<DestinationChoice*>()->list();
    EXPECT_TRUE(Wait([&] {
        list->showPopup();
        list->hidePopup();
        return popupWith("other") != nullptr;
    }));
}

TEST_F(PrintWindowQueueTest, ThePaneComesAndGoesWithThePrinter) {
    choose("other");
    choose("kalmo");
    QTest::qWait(1000);
    EXPECT_TRUE(print()->isEnabled() && hasPane()) << "back before the other one was known";
    choose("other");  // known some time after the dialog of the pane before is open
    EXPECT_FALSE(print()->isEnabled()) << "until the printer is known";
    driver_.expect([this](QWidget& dialog) {
        QTest::qWait(1500);
        EXPECT_TRUE(hasPane()) << "while its dialog is open";
        enterPasscode(dialog);
    });
    choose("Secure print");
    ASSERT_TRUE(Wait([this] { return print()->isEnabled(); }));
    EXPECT_FALSE(hasPane());
    choose("kalmo");
    ASSERT_TRUE(Wait([this] { return print()->isEnabled(); }));
    EXPECT_TRUE(hasPane());
    choose("Save to folder");
    EXPECT_TRUE(print()->isEnabled() && hasPane()) << "with the settings of the last printer";
    window_->reject();
    EXPECT_EQ(window_->exitCode(), kExitCancelled);
}

TEST_F(PrintWindowQueueTest, WhatTheUserHasChosenGoesAlongToOtherPrinters) {
    ASSERT_TRUE(SavePreset("Tumble", TicketFile("",
                                                "<key>Duplex</key><string>DuplexTumble</string>"
                                                "<key>KLPunch</key><string>3HolePunch</string>")));
    window_ = ShowWindow({.document = document.string(), .printer = "kalmo"});
    window_->findChild<QSpinBox*>()->setValue(3);
    window_->findPrinters();
    ASSERT_TRUE(Wait([this] { return print()->isEnabled() && hasPane() && popupWith("Tumble"); }));
    EXPECT_EQ(window_->findChild<QSpinBox*>()->value(), 3) << "typed before there was a printer";
    choose("Tumble");
    for (const char* name : {"other", "kalmo"}) {
        choose(name);
        ASSERT_TRUE(Wait([this] { return print()->isEnabled(); }));
        EXPECT_EQ(window_->findChild<PresetChoice*>()->list()->currentText(), "Tumble");
        EXPECT_EQ(window_->findChild<SendingBar*>()->fault().contains("3HolePunch"), !hasPane());
    }
    EXPECT_EQ(popupWith("3 holes")->currentText(), "3 holes") << "although the other has none";
    Pick(*popupWith("3 holes"), "2 holes");
    choose("other");
    ASSERT_TRUE(Wait([this] { return print()->isEnabled(); }));
    EXPECT_TRUE(window_->findChild<SendingBar*>()->fault().contains("2 holes"));
    EXPECT_EQ(window_->findChild<PresetChoice*>()->list()->currentText(), "");
}

}  // namespace
}  // namespace kalmo::test
