// The window against a real CUPS server: finding printers, changing them, printing.
#include "print_dialog/shown_window.h"
#include "programs/private_cupsd.h"
#include "support/dead_servers.h"
#include "support/pane_dialog.h"
#include "support/ticket_files.h"

namespace kalmo::test {
namespace {

constexpr char kPasscode[] = "8264019375";

struct PrintWindowQueueTest : QueueTest, WindowInFront {
    void SetUp() override {
        QueueTest::SetUp();
        setenv("XDG_CONFIG_HOME", MakeFolder("config").c_str(), 1);
        open({.document = document.string(), .printer = "kalmo"});
    }
    void open(const CommandLine& commandLine) {
        window_ = ShowWindow(commandLine);
        window_->findPrinters();
        ASSERT_TRUE(Wait([this] { return print()->isEnabled() && hasPane() && popup("other"); }));
    }
    [[nodiscard]] bool hasPane() const {
        const auto* selector = window_->findChild<QComboBox*>("panelSelector");
        return selector && selector->isVisible();
    }
    void choosePrinter(const QString& name) {
        choose(name);
        waitToPrint();
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
        expectPrinted();
        EXPECT_TRUE(server.printed(1));
    }

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
    copies()->setValue(3);
    printJob();
    const std::string told = server.attributes(1, "alice");
    for (const auto& [text, option] : rows)
        EXPECT_TRUE(Contains(told, option)) << option << '\n' << told;

    open({.document = document.string()});
    EXPECT_TRUE(Wait([&] { return presets()->currentText() == "Last used"; }));
    EXPECT_EQ(popup(rows[2].first)->currentText(), rows[2].first);
    EXPECT_EQ(copies()->value(), 1) << "copies are of one job";
    choosePrinter("other");
    choosePrinter("kalmo");
    EXPECT_EQ(popup(rows[2].first)->currentText(), rows[2].first);
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
    EXPECT_EQ(popup("other"), nullptr);
    dead.reset();
    server.use();
    auto* list = window_->findChild<DestinationChoice*>()->list();
    EXPECT_TRUE(Wait([&] {
        list->showPopup();
        list->hidePopup();
        return popup("other") != nullptr;
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
    waitToPrint();
    EXPECT_FALSE(hasPane());
    choosePrinter("kalmo");
    EXPECT_TRUE(hasPane());
    choose("Save to folder");
    EXPECT_TRUE(print()->isEnabled() && hasPane()) << "with the settings of the last printer";
    window_->reject();
    EXPECT_EQ(window_->exitCode(), kExitCancelled);
}

TEST_F(PrintWindowQueueTest, WhatTheUserHasChosenGoesAlongToOtherPrinters) {
    ASSERT_TRUE(SavePreset("Tumble", TicketFile("", "Duplex=DuplexTumble KLPunch=3HolePunch")));
    window_ = ShowWindow({.document = document.string(), .printer = "kalmo"});
    copies()->setValue(3);
    window_->findPrinters();
    ASSERT_TRUE(Wait([this] { return print()->isEnabled() && hasPane() && popup("Tumble"); }));
    EXPECT_EQ(copies()->value(), 3) << "typed before there was a printer";
    choose("Tumble");
    for (const char* name : {"other", "kalmo"}) {
        choosePrinter(name);
        EXPECT_EQ(presets()->currentText(), "Tumble");
        EXPECT_EQ(fault().contains("3HolePunch"), !hasPane());
    }
    EXPECT_EQ(popup("3 holes")->currentText(), "3 holes") << "although the other has none";
    choose("2 holes");
    choosePrinter("other");
    EXPECT_TRUE(fault().contains("2 holes"));
    EXPECT_EQ(presets()->currentText(), "");
}

}  // namespace
}  // namespace kalmo::test
