// A job in words: from tickets of every kind, and in its window.
#include "print_dialog/job_summary.h"

#include <random>

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
        EXPECT_EQ(pane_.beginOn(), noErr);
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

/// Numbers, texts, and dictionaries and arrays of them.
Owned<CFTypeRef> AnyValue(std::mt19937& random, unsigned depth) {
    static const auto plain = [] {
        std::vector<Owned<CFTypeRef>> values = {Value('"' + std::string(100000, 'x') + '"')};
        for (const QString& text : QString("0|-1|2|5|75|2147483647|unset|true|9223372036854775807|"
                                           "\"\x1b[31m\u202e\n😀\"")
                                       .split('|'))
            values.push_back(Value(text.toStdString()));
        return values;
    }();
    static const auto keys =
        QString(
            "Stock Record JobType DelayedPrintTime SecurePrintPassword StartPage EndPage "
            "Quantity SidesImaged LightenDarken Size Width Length Type Color Source "
            "CustomName CustomType Name Pages SendTime")
            .split(' ');
    if (random() % (depth + 1) == 0) return plain[random() % plain.size()];
    const auto page = Dictionary("");
    for (const QString& key : keys)
        CFDictionarySetValue(page, String(key.toStdString()), AnyValue(random, depth - 1));
    return Owned<CFTypeRef>::Retain(random() % 2 == 0 ? CFTypeRef(page) : Array({page.get()}));
}

TEST_F(JobSummaryTest, AnyTicketMakesLines) {
    std::mt19937 random(1);
    for (int round = 0; round < 300; ++round) {
        for (const char* key :
             {"JobType", "JobLevelStock", "FaxOptions", "FaxRecipientList", "Watermark",
              "BookletLayout", "BookletForceNewSize", "FinishingDuplex", "FinishingSlipSheet",
              "JobNotesMessage", "SpecialPages.FrontCover", "SpecialPages.BackCover",
              "SpecialPages.InsertList", "SpecialPages.ExceptionList"})
            put(key, AnyValue(random, 2).get());
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
