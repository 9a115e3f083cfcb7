// The window against a real CUPS server: finding printers, changing them, printing.
#include <gtest/gtest.h>

#include <QTest>

#include "print_dialog/print_window.h"
#include "programs/private_cupsd.h"
#include "support/pdf_documents.h"
#include "support/printer_files.h"
#include "support/private_home.h"
#include "toolbox/host.h"

namespace kalmo::test {
namespace {

bool Wait(const std::function<bool()>& until) { return QTest::qWaitFor(until, 30000); }

class PrintWindowQueueTest : public testing::Test {
protected:
    void SetUp() override {
        InstallPresence(WindowPresence());
        server_.installFilter("kalmoticket", BuiltProgram("kalmoticket"));
        ASSERT_EQ(server_.problem(), "");
        ASSERT_EQ(server_.addQueue("kalmo", SamplePPD("kalmo-office-color")).exitCode, 0);
        ASSERT_EQ(server_.addQueue("other", WritePPD("Other")).exitCode, 0);
        const auto document = MakeFolder("documents") / "report.pdf";
        WriteFile(document, MakePdf({"One", "Two", "Three"}));
        window_ = std::make_unique<PrintWindow>(
            CommandLine{.document = document.string(), .printer = "kalmo"});
        ASSERT_EQ(window_->prepare(), kExitDone);
        window_->show();
        window_->findPrinters();
        ASSERT_TRUE(Wait([this] { return print()->isEnabled() && hasPane(); }));
    }
    QPushButton* print() const {
        for (auto* button : window_->findChildren<QPushButton*>()) {
            if (button->isDefault()) return button;
        }
        return nullptr;
    }
    [[nodiscard]] bool hasPane() const {
        const auto* selector = window_->findChild<QComboBox*>("panelSelector");
        return selector && selector->isVisible();
    }
    /// In a popup of the window, as a person does it.
    void choose(const QString& text) {
        for (auto* popup : window_->findChildren<QComboBox*>()) {
            const int index = popup->findText(text);
            if (index < 0) continue;
            popup->setCurrentIndex(index);
            Q_EMIT popup->activated(index);
            return;
        }
        FAIL() << "nothing offers " << text.toStdString();
    }

    PrivateCupsd server_;
    std::unique_ptr<PrintWindow> window_;
};

TEST_F(PrintWindowQueueTest, PrintsOnTheChosenQueue) {
    choose("2");
    print()->click();
    ASSERT_TRUE(Wait([this] { return !window_->isVisible(); }));
    EXPECT_EQ(window_->exitCode(), kExitDone);
    EXPECT_EQ(server_.finished(1).state, IPP_JSTATE_COMPLETED) << server_.log();
    const std::string told = server_.attributes(1, "alice");
    EXPECT_NE(told.find("number-up=2"), std::string::npos) << told;
    EXPECT_NE(told.find("com.kalmo.print.ticket="), std::string::npos) << told;
}

TEST_F(PrintWindowQueueTest, ThePaneComesAndGoesWithThePrinter) {
    choose("other");
    EXPECT_FALSE(print()->isEnabled()) << "until the printer is known";
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

}  // namespace
}  // namespace kalmo::test
