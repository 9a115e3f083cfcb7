// The Job Notes panel between ticket, controls and the user's files.
#include "job_notes/job_notes_panel.h"

#include "settings/user_preferences.h"
#include "support/beeps.h"
#include "support/dictionaries.h"
#include "support/panel_rig.h"
#include "system/system.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kJob = 2001, kSender = 2002, kRecipient = 2003;
constexpr SInt32 kBanner = 2004, kStart = 2005, kInfo = 2010;

struct JobNotesPanel : testing::Test, PanelRig {
    JobNotesPanel() : PanelRig(GetJobNotesPanelInterface, 'KPjn') {}

    static CFStringRef key(const char* name) {
        return CFStringMakeConstant((std::string("com.kalmo.print.JobNotes") + name).c_str());
    }
    /// What the ticket holds once the panel has written it, with " | " between; "-" for nothing.
    std::string written(const std::vector<const char*>& names) {
        EXPECT_EQ(sync(kSyncToTicket), noErr);
        std::string all;
        for (const char* name : names) {
            CFTypeRef value = CFSTR("-");
            PMTicketGetItem(printer.ticket, key(name), &value);
            all += TakeText(CFStringCreateWithFormat(nullptr, CFSTR("%@ | "), value));
        }
        return all;
    }
    std::string names() {
        return written({"UseJobName", "JobName", "SenderUseLoginName", "SenderName",
                        "RecipientUseLoginName", "Recipient"});
    }
    std::string messages() { return written({"SheetMessage", "Message", "AdditionalInfo"}); }

    void show() {
        PanelRig::show();
        window.show();
        QApplication::setActiveWindow(&window);
    }
    QWidget* widget(SInt32 id) { return PanelRig::control(id); }
    ControlRef control(SInt32 id) { return ControlFromWidget(widget(id)); }
    std::string text(SInt32 id) { return TakeText(CopyControlTitleAsCFString(control(id))); }
    void type(SInt32 id, const std::string& keys) {
        SetKeyboardFocus(control(id));
        SetControlTitleWithCFString(control(id), CFSTR(""));
        QTest::keyClicks(widget(id), QString::fromStdString(keys));
    }

    CountedBeeps beeps;
    std::string login = TakeText(CopyConsoleUser());
};

TEST_F(JobNotesPanel, TheBoxOfTheJobNameChoosesAllThreeNames) {
    initialize();
    const std::string own = login + " | ",
                      usual = "true | " + own + "true | " + own + "true | " + own;
    EXPECT_EQ(names(), usual) << "an empty ticket, no controls yet";
    show();
    EXPECT_EQ(names(), usual);
    type(kJob, "Report"), type(kSender, "Ada");
    EXPECT_EQ(names(), "false | Report | false | Ada | true |  | ");
    type(kSender, "");
    EXPECT_EQ(names(), "false | Report | true | Ada | true |  | ") << "what was typed last";
    type(kSender, "Eve"), type(kJob, "");
    EXPECT_EQ(names(), "true | " + own + "false | " + own + "true | " + own);
}

TEST_F(JobNotesPanel, WhatWasReadIsShownAndWrittenBack) {
    const auto put = [this](const char* name, const char* value) {
        PanelRig::put(key(name), Value(value));
    };
    put("UseJobName", "false"), put("JobName", "Plan");
    put("SenderUseLoginName", "true"), put("SenderName", "Ada");
    put("RecipientUseLoginName", "no flag"), put("Recipient", "7");
    put("SheetMessage", "a\nb"), put("Message", "true"), put("AdditionalInfo", "c");
    initialize();
    EXPECT_EQ(names(), "false | Plan | true |  | true |  | ") << "kept without controls";
    show();
    EXPECT_EQ(text(kJob) + text(kSender) + text(kBanner), "PlanUse the login namea\nb");
    EXPECT_EQ(messages(), "a\nb | - | c | ");
    for (const SInt32 id : {kBanner, kInfo}) type(id, "x\b");
    EXPECT_EQ(messages(), "- | - | - | ");
}

TEST_F(JobNotesPanel, ReturnAddsALineAtTheEndUpToTheLimitAndClearTakesAllAway) {
    const struct {
        SInt32 field, clear;
        std::size_t most;
    } rows[] = {{kBanner, 2007, 1000}, {kStart, 2008, 1000}, {kInfo, 2011, 255}};
    show();
    for (const auto& [id, clear, most] : rows) {
        type(id, "\r\b");
        EXPECT_FALSE(widget(clear)->isEnabled());
        type(id, "one");
        SetControlTextSelection(control(id), {0, 2});
        QTest::keyClicks(widget(id), "\r\ra");
        EXPECT_EQ(text(id), "one\n\na");
        const std::string nearlyFull(most - 1, 'x');
        SetControlTitleWithCFString(control(id), String(nearlyFull));
        QTest::keyClicks(widget(id), "\ra\r");
        EXPECT_EQ(text(id), nearlyFull + "\n");
        EXPECT_EQ(beeps.take(), 2);
        QTest::mouseClick(widget(clear), Qt::LeftButton);
        EXPECT_EQ(text(id), "");
        EXPECT_FALSE(widget(clear)->isEnabled());
        EXPECT_TRUE(HasKeyboardFocus(control(id)));
    }
}

TEST_F(JobNotesPanel, PreferencesChangeTheirFileOnlyWithOK) {
    const auto stored = [](JobNotesPreferencesOptions options) {
        RetrieveJobNotesPreferences(&options);
        return std::array{options.useDocumentNameAsJobName, options.useLoginNameAsSenderName};
    };
    EXPECT_EQ(stored({0, 0, 0}), (std::array{1, 1})) << "no file";
    show();
    for (const auto& [end, left] : {std::pair(Qt::Key_Escape, 1), {Qt::Key_Return, 0}}) {
        driver.expect([key = end](QWidget& dialog) {
            FindControl<QCheckBox>(dialog, 'KPDE', 9001)->click();
            QTest::keyClick(&dialog, key);
        });
        type(kBanner, "typed");
        QTest::mouseClick(widget(2006), Qt::LeftButton);
        EXPECT_EQ(stored({}), (std::array{1, left}));
        EXPECT_EQ(text(kBanner), "typed") << "no note is lost";
    }
}

TEST_F(JobNotesPanel, NamesAreRemembered) {
    show();
    type(kRecipient, "Grace");
    operations().Terminate(std::exchange(context, nullptr), noErr);
    const auto file = Owned<CFDictionaryRef>::Adopt(CopyUserPreferences(kInputHistoryFile));
    EXPECT_TRUE(CFDictionaryContainsKey(file, CFSTR("jobNotesRecipientName")));
}

}  // namespace
}  // namespace kalmo::test
