// kalmo-print against real CUPS servers over a network: encrypted, and by way of another one.
#include "print_dialog/printer_requests.h"
#include "print_dialog/shown_window.h"
#include "programs/failing_server.h"
#include "programs/private_cupsd.h"
#include "support/dead_servers.h"
#include "support/ticket_files.h"

namespace kalmo::test {
namespace {

namespace fs = std::filesystem;

constexpr char kPasscode[] = "8264019375";

struct NetworkQueueTest : testing::Test, WindowInFront {
    void SetUp() override {
        ASSERT_EQ(far_.problem(), "");
        ASSERT_EQ(far_.addQueue("kalmo", SamplePPD("kalmo-office-color")).exitCode, 0);
        WriteFile(document_, MakePdf(2));
        WriteFile(ticket_,
                  TicketFile(JobTypeEntry(6, TextEntry("SecurePrintPassword", kPasscode))));
        fs::permissions(ticket_, fs::perms(0600));
    }
    /// A secure job without a window, to a server by that name.
    [[nodiscard]] ProgramEnd printBy(const std::string& server, const std::string& queue) const {
        return RunProgram(
            {.program = BuiltProgram("kalmo-print"),
             .arguments = {"--no-dialog", "-d", queue, "--ticket", ticket_, document_},
             .environment = {{"CUPS_SERVER", server}}});
    }

    PrivateCupsd far_{Reach::network};
    const fs::path document_ = MakeFolder("documents") / "report.pdf";
    const fs::path ticket_ = document_.parent_path() / "in.plist";
};

TEST_F(NetworkQueueTest, SecretsReachAnotherMachineEncryptedOrNotAtAll) {
    const std::string elsewhere = "127.1:" + far_.port();
    const auto here = printBy("127.0.0.1:" + far_.port(), "kalmo");
    EXPECT_EQ(here.exitCode, 0) << here.errors;
    EXPECT_FALSE(Contains(far_.log(), "Connection now encrypted"));
    const auto sent = printBy(elsewhere, "kalmo");
    EXPECT_EQ(sent.exitCode, 0) << sent.errors;
    EXPECT_EQ(sent.errors, "") << "what arrives as it was sent is not spoken of";
    EXPECT_TRUE(Contains(far_.log(), "Connection now encrypted"));
    const fs::path home = getenv("HOME");
    fs::create_directories(home / ".cups");
    for (const auto& [setting, reason] :
         {std::pair("AllowAnyRoot No", "certificate of the print server 127.1 is not trusted"),
          std::pair("Encryption Never", "encryption is switched off on this computer")}) {
        WriteFile(home / ".cups/client.conf", std::string(setting) + "\n");
        const auto refused = printBy(elsewhere, "kalmo");
        EXPECT_EQ(refused.exitCode, 1) << setting;
        EXPECT_TRUE(Contains(refused.errors, reason)) << refused.errors;
    }
    fs::remove(home / ".cups/client.conf");
    EXPECT_EQ(JobsOnTheServer().size(), 2);
}

TEST_F(NetworkQueueTest, AQueueOfAnotherServerTakesItsPPDAndItsJobsArriveThere) {
    far_.addQueue("strange", WritePPD("Strange"));
    PrivateCupsd near;
    ASSERT_EQ(near.problem(), "");
    const DeadServer dead(Silence::silent);
    const std::string silent = getenv("CUPS_SERVER");
    near.use();
    const std::string far = "ipp://127.0.0.1:" + far_.port() + "/printers/";
    near.addQueueOn(far + "kalmo", "away", {});
    near.addQueueOn(far + "kalmo", "both", WritePPD("Near"));
    near.addQueueOn("ipp://127.1:" + far_.port() + "/printers/kalmo", "clear", {});
    FailingServer miser({.faults = {{0, Fault::forbidden}}});
    near.addQueueOn("ipp://127.0.0.1:" + miser.port() + "/printers/kalmo", "refused", {});
    near.addQueueOn(far + "strange", "wild", {});
    near.addQueueOn("ipp://" + silent + "/printers/kalmo", "silent", {});
    near.addQueueOn("ipp://" + silent + "/printers/kalmo", "known", WritePPD("Near"));
    const std::pair<const char*, const char*> rows[] = {
        {"away", "Kalmo"}, {"both", "Kalmo"}, {"known", "Near"}};
    for (const auto& [queue, maker] : rows) {
        const auto found = FetchPrinterDescription(queue);
        EXPECT_EQ(found.error, "") << queue;
        EXPECT_TRUE(Contains(ReadFile(found.ppdPath), "*Manufacturer: \"" + std::string(maker)))
            << queue;
    }
    const auto refusal = FetchPrinterDescription("refused");
    EXPECT_EQ(refusal.error + refusal.ppdPath, "") << "it opens, without a pane";
    EXPECT_TRUE(Contains(refusal.note, "does not hand out")) << refusal.note;
    const auto lost = FetchPrinterDescription("silent");
    EXPECT_TRUE(Contains(lost.error, "is at the print server 127.0.0.1")) << lost.error;

    const auto listed =
        RunProgram({.program = BuiltProgram("kalmo-print"), .arguments = {"--list-printers"}});
    for (const auto& [queue, pane] : {std::pair("away", "yes"), {"both", "yes"}, {"wild", "no"}}) {
        const auto at = listed.output.find("\tpane: ", listed.output.find(queue));
        EXPECT_EQ(listed.output.find(pane, at), at + 7) << queue << '\n' << listed.output;
    }

    const auto refused = printBy(getenv("CUPS_SERVER"), "clear");
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(Contains(refused.errors, "jobs on to 127.1 unencrypted")) << refused.errors;
    const auto sent = printBy(getenv("CUPS_SERVER"), "away");
    EXPECT_EQ(sent.exitCode, 0) << sent.errors;
    EXPECT_TRUE(near.printed(1));
    far_.use();
    EXPECT_TRUE(far_.printed(1));
    EXPECT_TRUE(Contains(ReadFile(far_.outFolder() / "ticket"), kPasscode));
}

/// CUPS itself drops an option of such a name.
TEST_F(NetworkQueueTest, TheWindowStaysToNameAnOptionThatTheServerDropped) {
    const auto ppd = WritePPD("Kalmo");
    WriteFile(ppd,
              ReadFile(ppd) + PPDOption("Gloss-default", "Dull", {"Dull/As is", "Shiny/High"}));
    ASSERT_EQ(far_.addQueue("glossy", ppd).exitCode, 0);
    WriteFile(ticket_, TicketFile("", "Gloss-default=Shiny"));
    const std::string line = "Gloss-default: High was dropped";
    const auto end = printBy(getenv("CUPS_SERVER"), "glossy");
    EXPECT_EQ(end.exitCode, 0);
    EXPECT_TRUE(end.errors.ends_with("kalmo-print: " + line + "\n")) << end.errors;

    window_ = ShowWindow(
        {.document = document_.string(), .printer = "glossy", .ticket = ticket_.string()});
    window_->findPrinters();
    ASSERT_TRUE(Wait([this] {
        return print()->isEnabled() && popup("glossy") &&
               popup("glossy")->currentText() == "glossy";
    }));
    auto* const cancel = button("Cancel");
    print()->click();
    auto* bar = window_->findChild<SendingBar*>();
    ASSERT_TRUE(Wait([&] { return !bar->differences().isEmpty(); }));
    EXPECT_TRUE(window_->isVisible() && bar->differences().endsWith(QString::fromStdString(line)));
    EXPECT_EQ(cancel->text(), "Close");
    EXPECT_TRUE(cancel->hasFocus() && cancel->accessibleDescription().contains("Gloss"));
    QTest::keyClick(cancel, Qt::Key_Return);
    expectPrinted();
    EXPECT_EQ(JobsOnTheServer().size(), 2);
}

}  // namespace
}  // namespace kalmo::test
