// Secure print, delayed print, saved jobs and booklets, through their dialogs.
#include "paper_output/booklet_dialog.h"
#include "paper_output/delayed_print_dialog.h"
#include "paper_output/dialog_test.h"
#include "paper_output/paper_output_panel.h"
#include "paper_output/passcode.h"
#include "paper_output/saved_job_dialog.h"
#include "paper_output/secure_print_dialog.h"
#include "settings/ppd_choices.h"
#include "settings/ppd_file.h"
#include "system/clock.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kTime = 103, kName = 202, kUseDocumentName = 203, kFolder = 205, kFormat = 207,
                 kSaveAndPrintButton = 210, kProtect = 211;

enum class End { accepted, made, refused };

struct JobDialogs : DialogTest {
    JobDialogs() { panel.bundle = bundle; }

    /// Types a pair, presses OK, and Cancel where that should leave the dialog open.
    ModalDriver::Answer typing(const char* first, const char* second, End end) {
        notices.clear();
        return [=](QWidget& window) {
            Type(window, kPasscodeFieldID, "0000");  // so that the confirmation can be typed
            Type(window, kConfirmationFieldID, second);
            Type(window, kPasscodeFieldID, first);
            Press(window, kOK);
            if (end == End::refused) Press(window, kCancel);
        };
    }
    void expectEnd(End end, const std::string& expected, CFStringRef result) {
        const std::string held = CFStringToUTF8(result);
        EXPECT_EQ(notices.size(), end == End::accepted ? 0u : 1u);
        EXPECT_EQ(held, end == End::made ? held : end == End::refused ? "777" : expected);
        if (end != End::made) return;
        EXPECT_TRUE(held.size() == 4 && held >= "1000") << held;
        EXPECT_TRUE(Contains(notices.at(0), held)) << "the user is told";
    }
    SInt32 runSavedJob(const ModalDriver::Answer& answer) {
        driver.expect(answer);
        return RunModalSavedJobDialog(&panel);
    }
    SInt32 runSecurePrint(const ModalDriver::Answer& answer) {
        driver.expect(answer);
        return RunModalSecurePrintSetup(bundle, &passcode);
    }

    _PaperOutputContext panel;
    JobType& job = panel.record.job;
    Owned<CFStringRef> passcode;
};

TEST_F(JobDialogs, PasscodesAreTakenMadeOrRefused) {
    const std::tuple<const char*, const char*, const char*, End, End, const char*> rows[] = {
        {"short and different", "12", "34", End::refused, End::refused, ""},
        {"short: only secure print makes a new one", "12", "12", End::made, End::accepted, "12"},
        {"one digit differs", "12345", "12346", End::refused, End::refused, ""},
        {"an empty one is made before it is compared", "", "34", End::made, End::made, ""},
        {"digits only", "12a4 5", "1245", End::accepted, End::accepted, "1245"},
        {"ten at most", "12345678901", "1234567890", End::accepted, End::accepted, "1234567890"},
    };
    for (const auto& [why, first, second, securePrint, savedJob, taken] : rows) {
        SCOPED_TRACE(why);
        passcode = String("777");
        runSecurePrint(typing(first, second, securePrint));
        expectEnd(securePrint, taken, passcode);
        job.setPasscode(String("777"));
        runSavedJob(typing(first, second, savedJob));
        expectEnd(savedJob, taken, job.securePassword);
    }
}

TEST_F(JobDialogs, PasscodesAreHiddenAndTheConfirmationWaitsForFourDigits) {
    const auto walk = [](QWidget& window) {
        for (const SInt32 id : {kPasscodeFieldID, kConfirmationFieldID})
            EXPECT_EQ(Control<QLineEdit>(window, id).echoMode(), QLineEdit::Password);
        for (const char* typed : {"1234", "123"}) {
            Type(window, kPasscodeFieldID, typed);
            EXPECT_EQ(Enabled(window, kConfirmationFieldID), typed == std::string("1234"));
        }
        Press(window, kCancel);
    };
    runSecurePrint(walk);
    runSavedJob([&](QWidget& window) {
        Press(window, kProtect);
        walk(window);
    });
    EXPECT_FALSE(passcode || job.hasSecurePassword);
}

TEST(Passcode, IsAsLikelyInEveryThousand) {
    int counts[10] = {};
    for (int i = 0; i < 9000; ++i) ++counts[CFStringToUTF8(MakePasscode()).at(0) - '0'];
    for (int thousand = 1; thousand <= 9; ++thousand) EXPECT_NEAR(counts[thousand], 1000, 200);
}

TEST_F(JobDialogs, ATimeOfDayIsItsNextMoment) {
    const auto at = [](SInt32 month, SInt32 day, SInt32 hour, SInt32 second = 0) {
        return LongDateToSeconds({2024, month, day, hour, 0, second});
    };
    const SInt64 eight = SInt64{8} * 3600;
    EXPECT_EQ(NextReleaseTime(at(1, 30, 7), eight), at(1, 30, 8));
    EXPECT_EQ(NextReleaseTime(at(1, 30, 8), eight), at(1, 30, 8)) << "now";
    EXPECT_EQ(NextReleaseTime(at(1, 30, 8, 1), eight), at(1, 31, 8)) << "just over";
    SetNowForTests(at(1, 31, 9));
    SInt64 time = 0;
    driver.expect([](QWidget& window) {
        auto& field = Control<QTimeEdit>(window, kTime);
        EXPECT_EQ(field.time(), QTime(0, 0)) << "never set";
        field.setTime(QTime(8, 0));
        Press(window, kOK);
    });
    EXPECT_EQ(RunModalDelayedPrintSetup(bundle, &time), kModalOK);
    SetNowForTests({});
    EXPECT_EQ(time, at(2, 1, 8));
}

TEST_F(JobDialogs, ASavedJobTakesNameFolderFormatAndAction) {
    job.setPasscode(String("1234"));
    runSavedJob([this](QWidget& window) {
        Press(window, kUseDocumentName);
        EXPECT_FALSE(Enabled(window, kOK)) << "a name of one's own has to be there";
        Type(window, kName, "Mine");
        Choose(window, kFormat, "PDF");
        Press(window, kSaveAndPrintButton);
        Press(window, kProtect);
        driver.expect([](QWidget& question) {
            Type(question, 123456, "Contracts");
            QTest::keyClick(question.focusWidget(), Qt::Key_Return);
        });
        // The question is answered once this answer is done.
        QTimer::singleShot(0, &window, [&window] {
            Choose(window, kFolder, "Other folder…");
            Press(window, kOK);
        });
    });
    EXPECT_EQ(CFStringToUTF8(job.savedJobName), "Mine");
    EXPECT_EQ(CFStringToUTF8(job.savedJobLocation), "file:///job-repository/Contracts");
    EXPECT_FALSE(job.useJobName || job.useDefaultLocation || job.hasSecurePassword);
    runSavedJob([](QWidget& window) {
        EXPECT_EQ(Control<QComboBox>(window, kFolder).currentText(), "Contracts");
        Choose(window, kFolder, "Public folder");
        Press(window, kOK);
    });
    EXPECT_TRUE(job.useDefaultLocation);
    EXPECT_EQ(job.mediaType, 3);
    EXPECT_EQ(job.saveDisposition, kSaveAndPrint);
}

TEST_F(JobDialogs, AFolderElsewhereIsKept) {
    job.useDefaultLocation = false;
    job.savedJobLocation = String("smb://elsewhere/x");
    runSavedJob([](QWidget& window) { Press(window, kOK); });
    EXPECT_EQ(CFStringToUTF8(job.savedJobLocation), "smb://elsewhere/x");
}

constexpr SInt32 kLayout = 301, kOutlines = 302, kPaper = 304, kGutter = 306, kCreep = 309,
                 kFold = 312;

struct BookletDialogs : DialogTest {
    BookletDialogs() { printer.useFile(SamplePPD("kalmo-office-color")); }
    SInt32 run(const ModalDriver::Answer& answer) {
        driver.expect(answer);
        return RunModalBookletDialog(bundle, printer.ppd(), &choice);
    }
    PrinterWithPPD printer{""};
    BookletChoice choice;
};

TEST_F(BookletDialogs, TakeWhatIsChosen) {
    choice.booklet.gutter = 9999;
    run([](QWidget& window) {
        EXPECT_EQ(Text(window, kGutter), "144") << "held at the range's end";
        for (const bool layout : {false, true}) {
            for (const SInt32 id : {kOutlines, kPaper, kGutter, kCreep})
                EXPECT_EQ(Enabled(window, id), layout) << id;
            if (!layout) Press(window, kLayout);
        }
        Press(window, kOutlines);
        Choose(window, kPaper, "A3");
        Type(window, kGutter, "30");
        Choose(window, kFold, "Booklet, folded and stapled");
        Type(window, kCreep, "73");
        Control<QAbstractButton>(window, kOK).click();  // the focus stays in the field
        EXPECT_EQ(Text(window, kCreep), "72") << "put right, and looked at";
        Press(window, kOK);
    });
    EXPECT_EQ(choice.booklet.mode, kBookletOn);
    EXPECT_EQ(choice.booklet.drawOutlines, 1);
    EXPECT_EQ(PPDChoiceForTicketValue(CFSTR("PageSize"), choice.booklet.newSize), CFSTR("A3"));
    EXPECT_EQ(choice.booklet.gutter, 30);
    EXPECT_EQ(choice.booklet.creep, 72);
    EXPECT_EQ(choice.fold, kFoldBiStaple);
}

TEST_F(BookletDialogs, LeaveOtherFoldsAlone) {
    choice.fold = kFoldC;
    run([](QWidget& window) { Press(window, kOK); });
    EXPECT_EQ(choice.fold, kFoldC);
}

}  // namespace
}  // namespace kalmo::test
