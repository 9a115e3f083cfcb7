// kalmo-ticket at the command line.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

#include "job_ticket/attachment.h"
#include "support/pdf_documents.h"
#include "support/private_home.h"
#include "support/programs.h"

namespace kalmo::test {
namespace {

using std::filesystem::path;

class KalmoTicket : public testing::Test {
protected:
    KalmoTicket() {
        WriteFile(plain, MakePdf({"page"}));
        EXPECT_TRUE(job_ticket::AttachTicket(plain, ticket, sent));
    }

    ProgramEnd run(const std::vector<std::string>& arguments) {
        return RunProgram({.program = BuiltProgram("kalmo-ticket"), .arguments = arguments});
    }

    const path folder = MakeFolder("kalmo ticket");
    const path plain = folder / "a document.pdf";
    const path sent = folder / "sent.pdf";
    const path ticketFile = folder / "ticket.plist";
    const path documentFile = folder / "clean.pdf";
    const std::string ticket = "<plist>\r\npasscode 4711</plist>";
    const std::string digest = job_ticket::TicketDigest(ticket);
};

TEST_F(KalmoTicket, TakesOutWhatTheDigestNames) {
    umask(0);
    const ProgramEnd end =
        run({sent, "--digest", digest, "--ticket", ticketFile, "--document", documentFile});
    EXPECT_EQ(end.exitCode, 0) << end.errors;
    EXPECT_EQ(ReadFile(ticketFile), ticket);
    EXPECT_EQ(ReadFile(documentFile).find("4711"), std::string::npos);
    for (const path& file : {ticketFile, documentFile}) {
        EXPECT_EQ(status(file).permissions(), std::filesystem::perms(0600)) << file;
    }
}

TEST_F(KalmoTicket, PassesTheDocumentUnchangedWithoutADigest) {
    EXPECT_EQ(run({sent, "--document", documentFile}).exitCode, 0);
    EXPECT_EQ(ReadFile(documentFile), ReadFile(sent));
}

TEST_F(KalmoTicket, RefusesInOneLineAndWritesNothing) {
    WriteFile(folder / "letter.pdf", "Dear reader");
    const std::string other = job_ticket::TicketDigest("other");
    const std::tuple<const char*, std::vector<std::string>, int> rows[] = {
        {"changed", {sent, "--digest", other}, 1},
        {"missing", {plain, "--digest", digest}, 1},
        {"no PDF", {folder / "letter.pdf", "--digest", digest}, 1},
        {"no such file", {folder / "nowhere.pdf"}, 1},
        {"no document", {}, 2},
        {"unknown option", {sent, "--what"}, 2},
        {"two documents", {sent, plain}, 2},
    };
    for (const auto& [why, start, code] : rows) {
        SCOPED_TRACE(why);
        std::vector<std::string> arguments = start;
        arguments.insert(arguments.end(), {"--document", documentFile});
        const ProgramEnd end = run(arguments);
        EXPECT_EQ(end.exitCode, code) << end.errors;
        EXPECT_FALSE(end.errors.empty());
        EXPECT_TRUE(code == 2 || std::ranges::count(end.errors, '\n') == 1) << end.errors;
        EXPECT_EQ(end.errors.find("4711"), std::string::npos);
        EXPECT_FALSE(exists(documentFile));
    }
    EXPECT_EQ(run({sent, "--ticket", ticketFile}).exitCode, 2) << "a ticket needs its digest";
}

}  // namespace
}  // namespace kalmo::test
