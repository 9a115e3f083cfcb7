// The check before printing, from the job's record to what the dialog hears.
#include "paper_output/print_check.h"

#include "paper_output/dialog_test.h"
#include "shell/shell_events.h"

namespace kalmo::test {
namespace {

struct PrintCheck : DialogTest {
    PrintCheck() {
        shell.parent = ControlFromWidget(new QWidget(&window));
        shell.defaultButton = ControlFromWidget(new QPushButton(&window));
    }
    ~PrintCheck() override {
        RemoveAllHandlers(shell);
        InstallPrintCheckSource({});
    }

    void setJob(SInt32 type, const char* passcode, CFIndex recipients) {
        const auto text = passcode ? String(passcode) : Owned<CFStringRef>();
        InstallPrintCheckSource({.job =
                                     [=, this] {
                                         ++checks;
                                         return CheckedJob{type, text, recipients};
                                     },
                                 .runFaxSetup = [this] { ++faxSetups; }});
    }
    OSStatus pressPrint() { return SendCommandFromControl(shell.defaultButton, 'ok  '); }

    QWidget window;
    PDEShellContext shell;
    int checks = 0, faxSetups = 0;
};

TEST_F(PrintCheck, OnlySecurePrintWithoutPasscodeAndFaxWithoutRecipientAreRefused) {
    const std::tuple<const char*, SInt32, const char*, CFIndex, std::size_t, int> rows[] = {
        {"any passcode will do", 6, "1", 0, 0, 0}, {"empty passcode", 6, "", 3, 1, 0},
        {"no passcode", 6, nullptr, 0, 1, 0},      {"fax with recipient", 5, "", 1, 0, 0},
        {"fax without", 5, "1234", 0, 0, 1},       {"where no setup is shown", 5, nullptr, 0, 1, 0},
    };
    for (const auto& [why, type, passcode, recipients, noticed, faxed] : rows) {
        SCOPED_TRACE(why);
        Presence presence = CurrentPresence();
        presence.modalLoopsRun = why != std::string("where no setup is shown");
        InstallPresence(presence);
        notices.clear();
        faxSetups = 0;
        setJob(type, passcode, recipients);
        EXPECT_EQ(CheckPrintJob() == PrintCheckResult::refused, noticed || faxed);
        EXPECT_EQ(notices.size(), noticed);
        EXPECT_EQ(faxSetups, faxed);
    }
}

TEST_F(PrintCheck, OnePressChecksOnceAndARefusalHoldsTheDialog) {
    InstallDialogHandlers(shell);
    InstallOpenHandler(shell);
    setJob(1, nullptr, 0);
    EXPECT_EQ(pressPrint(), eventNotHandledErr) << "printing goes on";
    EXPECT_EQ(checks, 1);
    setJob(5, nullptr, 0);
    EXPECT_EQ(pressPrint(), kKalmoKeepDialogOpen);
    EXPECT_EQ(checks, 2);
    RemoveOpenHandler(shell);
    EXPECT_EQ(pressPrint(), kKalmoKeepDialogOpen) << "a closed pane is checked too";
}

}  // namespace
}  // namespace kalmo::test
