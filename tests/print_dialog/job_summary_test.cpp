// A job in words: from tickets of every kind, and in its window.
#include "print_dialog/job_summary.h"

#include "print_dialog/dry_run.h"
#include "print_dialog/hosted_pane.h"
#include "print_dialog/session_tickets.h"
#include "print_dialog/summary_dialog.h"
#include "support/dictionaries.h"
#include "support/window_walk.h"

namespace kalmo::test {
namespace {

const std::vector<PageSize> kEightPages(8, {595, 842});
constexpr char kMarker[] = "77345123";

struct JobSummaryTest : testing::Test {
    JobSummaryTest() {
        setenv("LANGUAGE", "en", 1);
        EXPECT_EQ(pane_.beginOnSample(), noErr);
        pane_.host.sync(kSyncToTicket);
    }
    void put(const std::string& key, CFTypeRef value) {
        PMTicketSetItem(pane_.host.printSettings(), nullptr, String("com.kalmo.print." + key),
                        value, false);
    }
    /// Entries as in dictionaries.h, with a blue paper; "" for a choice of the PPD file.
    void put(const std::string& key, const std::string& entries) {
        if (!Contains(entries, "=")) return WritePPDChoice(pane_.host.session(), key, entries);
        const auto dictionary = Dictionary(entries);
        const auto blue = Dictionary("Color=2");
        for (const char* inner : {"Stock", "Record"})
            CFDictionarySetValue(dictionary, String(inner), blue.get());
        put(key, key.ends_with("List") ? CFTypeRef(Array({dictionary.get()})) : dictionary.get());
    }
    /// Everything secret that a ticket can hold.
    void putSecrets(int jobType) {
        std::string secrets = "CoverSheet=true JobType=" + std::to_string(jobType);
        for (const char* key :
             {"SecurePrintPassword", "FirstName", "LastName", "FaxNumber", "Organization",
              "EmailAddress", "Mailbox", "PhoneNumber", "DialingPrefix", "CreditCard", "SenderName",
              "CoverSheetNotes", "CustomRecipientText"})
            secrets += std::string(" ") + key + "=\"" + kMarker + "\"";
        for (const char* key : {"JobType", "FaxRecipientList", "FaxOptions"}) put(key, secrets);
    }
    JobSummary summary() { return SummarizeJob(pane_.host, kEightPages); }
    /// The texts of the rows of that key.
    std::string told(const std::string& key) {
        std::string found;
        for (const SummaryRow& row : summary().rows)
            if (row.key == key) found += (found.empty() ? "" : "; ") + row.text;
        return found;
    }

    HostedPane pane_;
};

TEST_F(JobSummaryTest, SaysWhatATicketHolds) {
    // Each row adds to the ticket of those before.
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {"InputSlot", "Tray2", "paper", "A4, Plain, White, Tray 2"},
        {"StapleLocation", "None", "staple", ""},
        {"StapleLocation", "SinglePortrait", "staple", "1 staple"},
        {"SpecialPages.InsertList", "StartPage=9", "insert", ""},
        {"SpecialPages.InsertList", "StartPage=0", "insert",
         "1 sheet before page 1: A4, Plain, Blue"},
        {"SpecialPages.InsertList", "StartPage=3 Quantity=2", "insert",
         "2 sheets after page 3: A4, Plain, Blue"},
        {"SpecialPages.ExceptionList", "StartPage=2 EndPage=3", "paper",
         "Pages 1, 4-8: A4, Plain, White, Tray 2; Pages 2-3: A4, Plain, Blue"},
        {"SpecialPages.ExceptionList", "StartPage=8 EndPage=8 SidesImaged=3 LightenDarken=3",
         "exception", "Page 8: two-sided, turned on the short edge, A4, Plain, Blue, darker by 3"},
        {"SpecialPages.ExceptionList", "StartPage=7 EndPage=99", "exception",
         "Pages 7-8: A4, Plain, Blue"},
        {"SpecialPages.ExceptionList", "StartPage=9 EndPage=99", "exception", ""},
        {"SpecialPages.ExceptionList", "StartPage=8 EndPage=8 SidesImaged=3", "exception",
         "Page 8: two-sided, turned on the short edge, A4, Plain, Blue"},
        {"SpecialPages.FrontCover", "SidesImaged=4", "front-cover",
         "A4, Plain, Blue, printed on both sides, pages 1-2"},
        {"SpecialPages.BackCover", "SidesImaged=1", "back-cover",
         "A4, Plain, Blue, blank or preprinted"},
        {"SpecialPages.BackCover", "SidesImaged=1", "sheets", "10"},
        {"Watermark", "Name=Draft Pages=5", "watermark", "Draft, on page 1 only"},
        {"JobType", "JobType=7 DelayedPrintTime=3800000000", "job-type",
         "delayed until 31 May 2024 11:33:20"},
        {"JobType", "JobType=7 DelayedPrintTime=9223372036854775807", "job-type",
         "delayed, no time set yet"},
        {"JobType", "JobType=6", "job-type", "secure print, no passcode set yet"},
        {"JobType", "JobType=5", "job-type", "fax, no recipients yet, with a confirmation sheet"},
        {"FaxRecipientList", "FaxNumber=1", "job-type",
         "fax to 1 recipient, with a confirmation sheet"},
        {"FaxRecipientList", "FaxNumber=1", "sheets", ""},
    };
    for (const auto& [key, entries, row, expected] : rows) {
        SCOPED_TRACE(std::string(key) + " " + entries);
        put(key, std::string(entries));
        EXPECT_EQ(told(row), expected);
    }
}

TEST_F(JobSummaryTest, NoSecretIsTold) {
    for (const int jobType : {1, 5, 6, 7}) {
        putSecrets(jobType);
        DryRun text, json;
        const JobRequest request{.layout = SheetLayout({}, pane_.host.settings(), kEightPages)};
        ASSERT_TRUE(RehearseJob(pane_.host, request, kEightPages, DryRunForm::text, &text));
        ASSERT_TRUE(RehearseJob(pane_.host, request, kEightPages, DryRunForm::json, &json));
        for (const auto& all : {summary().text(), text.output, json.output}) {
            EXPECT_FALSE(Contains(all, kMarker)) << all;
            EXPECT_TRUE(Contains(all, "office-color")) << all;
        }
    }
}

TEST_F(JobSummaryTest, AnyTicketMakesLines) {
    std::vector<Owned<CFTypeRef>> values;
    for (const char* value : {"0", "-1", "2", "5", "75", "2147483647", "unset", "true",
                              "9223372036854775807", "\"\x1b[31m\xE2\x80\xAE\n\xF0\x9F\x98\x80\""})
        values.push_back(Value(value));
    values.push_back(Value("\"" + std::string(100000, 'x') + "\""));
    const QString pageKeys =
        "Stock Record JobType DelayedPrintTime SecurePrintPassword StartPage EndPage Quantity "
        "SidesImaged LightenDarken Size Width Length Type Color Source CustomName CustomType Name "
        "Pages SendTime";
    for (std::size_t plain = values.size(), i = 0; i < 3 * plain; ++i) {
        const auto page = Dictionary("");
        int next = 0;
        for (const QString& key : pageKeys.split(' '))
            CFDictionarySetValue(page, String(key.toStdString()),
                                 values[values.size() - 1 - i % 7 - next++ % 9]);
        values.push_back(Owned<CFTypeRef>::Retain(i % 2 ? CFTypeRef(page) : Array({page.get()})));
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        std::size_t next = i;
        for (const char* key :
             {"JobType", "JobLevelStock", "FaxOptions", "FaxRecipientList", "Watermark",
              "BookletLayout", "BookletForceNewSize", "FinishingDuplex", "FinishingSlipSheet",
              "JobNotesMessage", "SpecialPages.FrontCover", "SpecialPages.BackCover",
              "SpecialPages.InsertList", "SpecialPages.ExceptionList"})
            put(key, values[next++ % values.size()].get());
        const auto rows = summary().rows;
        const auto lines = QString::fromStdString(summary().text());
        EXPECT_EQ(lines.count('\n'), static_cast<int>(rows.size()));
        EXPECT_LT(lines.size(), 30000);
        for (const QChar each : lines)
            EXPECT_TRUE(each == '\n' || each.isPrint() || each.isSurrogate());
    }
}

TEST_F(JobSummaryTest, WithoutAPaneOrADocumentTheRestIsTold) {
    putSecrets(6);
    pane_.host.end(noErr);
    pane_.choose(WritePPD("Other"));
    EXPECT_EQ(SummarizeJob(pane_.host, {}).text(),
              "Printer: printer, Test\nCopies: 1\nSides: one-sided\nPaper: Letter\n");
}

TEST_F(JobSummaryTest, ItsWindowIsReadAndCopiedByKeyboard) {
    const auto all = summary().text();
    SummaryDialog dialog(summary(), {}, nullptr);
    Activate(dialog);
    EXPECT_EQ(WindowFaults(dialog, Identities::notNeeded), std::vector<std::string>());
    EXPECT_EQ(CutTexts(dialog), std::vector<std::string>());
    auto* text = qobject_cast<QTextEdit*>(dialog.focusWidget());
    ASSERT_TRUE(text) << "what there is to read has the focus";
    QTest::keyClicks(text, "x");
    EXPECT_EQ(dialog.text().toStdString() + "\n", all) << "it is not for writing";
    QTest::keyClick(text, Qt::Key_Tab);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), all);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

}  // namespace
}  // namespace kalmo::test
