// The check before printing, from the job's record to what the dialog hears.
#include <gtest/gtest.h>

#include <QPushButton>

#include "paper_output/print_check.h"
#include "shell/base/plugin_bundle.h"
#include "shell/shell_events.h"
#include "support/bundles.h"
#include "support/private_home.h"
#include "system/presence.h"
#include "system/system.h"
#include "toolbox/host.h"

namespace kalmo::test {
namespace {

struct PrintCheck : testing::Test {
    PrintCheck() {
        Presence presence = UnattendedPresence();
        presence.notice = [this](CFStringRef header, CFStringRef message) {
            notices.push_back(CFStringToUTF8(header) + ": " + CFStringToUTF8(message));
        };
        InstallPresence(presence);
        gBundle = bundle;
        shell.parent = ControlFromWidget(new QWidget(&window));
        auto* print = new QPushButton("Print", &window);
        shell.defaultButton = ControlFromWidget(print);
        shell.cancelButton = ControlFromWidget(new QPushButton("Cancel", &window));
    }
    ~PrintCheck() override {
        RemoveAllHandlers(shell);
        InstallPrintCheckSource({});
        InstallPresence(UnattendedPresence());
        SetSystemVersionForTests(kSystemVersion10_5);
    }

    void setJob(const CheckedJob& job) {
        InstallPrintCheckSource({.job =
                                     [this, job] {
                                         ++checks;
                                         return job;
                                     },
                                 .runFaxSetup = [this] { ++faxSetups; }});
    }
    OSStatus pressPrint() { return SendCommandFromControl(shell.defaultButton, 'ok  '); }

    QWidget window;
    PDEShellContext shell;
    Owned<CFBundleRef> bundle = Owned<CFBundleRef>::Adopt(OpenBundle(
        WriteBundle(MakeFolder("bundle"), "Texts", "com.kalmo.test.texts",
                    {{"Resources/en.lproj/Localizable.strings",
                      "\"Invalid Secure Print Passcode Header\" = \"Passcode\";\n"
                      "\"Invalid Secure Print Passcode Message\" = \"%d to %d digits\";\n"}})));
    std::vector<std::string> notices;
    int checks = 0, faxSetups = 0;
};

TEST_F(PrintCheck, OnlySecurePrintWithoutPasscodeAndFaxWithoutRecipientAreRefused) {
    const auto text = [](const char* utf8) {
        return Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(utf8));
    };
    struct {
        const char* why;
        CheckedJob job;
        PrintCheckResult expected;
        std::size_t notices;
        int faxSetups;
    } const rows[] = {
        {"normal", {1, {}, 0}, PrintCheckResult::pass, 0, 0},
        {"any passcode will do", {6, text("1"), 0}, PrintCheckResult::pass, 0, 0},
        {"empty passcode", {6, text(""), 3}, PrintCheckResult::refused, 1, 0},
        {"no passcode", {6, {}, 0}, PrintCheckResult::refused, 1, 0},
        {"fax with recipient", {5, {}, 1}, PrintCheckResult::pass, 0, 0},
        {"fax without", {5, text("1234"), 0}, PrintCheckResult::refused, 0, 1},
        {"saved job", {3, {}, 0}, PrintCheckResult::pass, 0, 0},
    };
    EXPECT_EQ(CheckPrintJob(), PrintCheckResult::pass) << "nobody owns a job's record";
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        notices.clear();
        faxSetups = 0;
        setJob(row.job);
        EXPECT_EQ(CheckPrintJob(), row.expected);
        EXPECT_EQ(notices.size(), row.notices);
        EXPECT_EQ(faxSetups, row.faxSetups);
    }
}

TEST_F(PrintCheck, ThePasscodeNoticeNamesTheAllowedLengths) {
    setJob({6, {}, 0});
    (void)CheckPrintJob();
    EXPECT_EQ(notices, std::vector<std::string>{"Passcode: 4 to 10 digits"});
}

TEST_F(PrintCheck, OnePressChecksOnceAndARefusalHoldsTheDialog) {
    struct {
        const char* why;
        SInt32 version;
        OSStatus refusal;
    } const rows[] = {{"10.5", kSystemVersion10_5, kKalmoKeepDialogOpen},
                      {"before 10.5", kSystemVersion10_5 - 0x10, noErr}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        SetSystemVersionForTests(row.version);
        InstallDialogHandlers(shell);
        InstallOpenHandler(shell);
        checks = 0;
        setJob({1, {}, 0});
        EXPECT_EQ(pressPrint(), eventNotHandledErr) << "printing goes on";
        EXPECT_EQ(checks, 1);
        setJob({5, {}, 0});
        EXPECT_EQ(pressPrint(), row.refusal);
        EXPECT_EQ(checks, 2);
        RemoveOpenHandler(shell);
        EXPECT_EQ(pressPrint(), row.refusal) << "a closed pane is checked too";
        RemoveAllHandlers(shell);
        EXPECT_EQ(pressPrint(), eventNotHandledErr);
    }
    EXPECT_EQ(faxSetups, 4);
}

}  // namespace
}  // namespace kalmo::test
