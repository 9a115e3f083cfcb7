// kalmo-print --dry-run, as a script runs it: all is told, nothing is made.
#include "support/pdf_documents.h"
#include "support/programs.h"
#include "support/qt_test.h"
#include "support/ticket_files.h"

namespace kalmo::test {
namespace {

struct DryRunTest : testing::Test {
    DryRunTest() {
        WriteFile(folder_ / "report.pdf", MakePdf(3));
        setenv("TMPDIR", temporary_.c_str(), 1);
    }
    ProgramEnd run(const std::string& settings, const std::string& choices,
                   std::vector<std::string> more) {
        WriteFile(folder_ / "in.plist", TicketFile(settings, choices));
        more.insert(more.end(), {"--dry-run", "--ppd", SamplePPD("kalmo-office-color"), "--ticket",
                                 folder_ / "in.plist", "--output", output_});
        const auto end = RunProgram({.program = BuiltProgram("kalmo-print"),
                                     .arguments = std::move(more),
                                     .environment = {{"QT_QPA_PLATFORM", ""}, {"LC_ALL", "C"}}});
        EXPECT_TRUE(std::filesystem::is_empty(output_) && std::filesystem::is_empty(temporary_));
        EXPECT_EQ(end.errors, "");
        return end;
    }

    const std::filesystem::path folder_ = MakeFolder("run"), output_ = MakeFolder("out"),
                                temporary_ = MakeFolder("tmp");
    const std::string document_ = folder_ / "report.pdf";
};

const char kTwoSided[] = "Duplex=DuplexNoTumble";
const char kNotTwoSided[] = " MediaType=Transparency";

TEST_F(DryRunTest, TellsSummaryOptionsAndConflicts) {
    const auto good = run("", kTwoSided, {document_});
    EXPECT_EQ(good.exitCode, 0);
    EXPECT_TRUE(Contains(good.output, "Document: report.pdf, 3 pages\n")) << good.output;
    EXPECT_TRUE(Contains(good.output, "\nSheets: 2\n")) << good.output;
    EXPECT_TRUE(Contains(good.output, "\n\nOptions:\n  print-scaling=")) << good.output;
    EXPECT_TRUE(Contains(good.output, "\n  Duplex=DuplexNoTumble\n")) << good.output;
    EXPECT_FALSE(Contains(good.output, "sha256")) << "there is no ticket that it could be of";
    EXPECT_TRUE(good.output.ends_with("\nConflicts:\n  none\n")) << good.output;
    const auto bad = run("", std::string(kTwoSided) + kNotTwoSided, {document_});
    EXPECT_EQ(bad.exitCode, 1);
    EXPECT_TRUE(Contains(bad.output.substr(bad.output.find("Conflicts:")), "Transparency"))
        << bad.output;
    const auto blank = run("", "", {});
    EXPECT_EQ(blank.exitCode, 0) << "without a document";
    EXPECT_FALSE(Contains(blank.output, "Sheets")) << blank.output;
}

TEST_F(DryRunTest, TellsProgramsTheSame) {
    const auto end =
        run(JobTypeEntry(6), std::string(kTwoSided) + kNotTwoSided, {"--json", document_});
    EXPECT_EQ(end.exitCode, 1);
    const auto told = QJsonDocument::fromJson(QByteArray::fromStdString(end.output)).object();
    const auto first = [&told](const char* key) { return told[key].toArray()[0].toObject(); };
    EXPECT_EQ(told["document"], (QJsonObject{{"name", "report.pdf"}, {"pages", 3}}));
    EXPECT_EQ(told["missing"], QJsonArray{"passcode"});
    const auto plan = told["plan"].toObject();
    EXPECT_EQ(plan["sheetsPerCopy"], 2);
    EXPECT_EQ(plan["runs"].toArray()[0].toObject()["pages"], "1-3");
    EXPECT_EQ(told["options"].toObject()["MediaType"], "Transparency");
    std::set<QString> options;
    for (const auto& each : first("conflicts")["selections"].toArray())
        options.insert(each.toObject()["option"].toString());
    EXPECT_EQ(options, (std::set<QString>{"Duplex", "MediaType"}));
    EXPECT_FALSE(first("changes")["choiceText"].toString().isEmpty());
    const auto set = JobTypeEntry(6, TextEntry("SecurePrintPassword", "77345123"));
    EXPECT_EQ(run(set, "", {"--json", document_}).exitCode, 0);
}

}  // namespace
}  // namespace kalmo::test
