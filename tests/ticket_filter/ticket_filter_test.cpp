// kalmoticket, called as cupsd calls it, and kalmo-ticket at the command line.
#include <sys/stat.h>

#include <csignal>
#include <fstream>
#include <thread>

#include "job_ticket/attachment.h"
#include "support/pdf_documents.h"
#include "support/programs.h"
#include "support/test.h"

namespace kalmo::test {
namespace {

using std::filesystem::path;

/// A document without and one with a ticket.
struct TicketFilter : testing::Test {
    TicketFilter() {
        WriteFile(plain, MakePdf(1));
        WriteFile(letter, "Dear reader");
        EXPECT_TRUE(job_ticket::AttachTicket(plain, ticket, sent));
    }

    /// kalmoticket: the file as sixth argument, or as `input` on standard input.
    ProgramCall call(const std::string& options, const path& file, const path& input = "/dev/null",
                     const std::string& type = "document") {
        ProgramCall made{.program = BuiltProgram("kalmoticket"),
                         .arguments = {"12", "alice", "A title; $(x)", "1", options},
                         .environment = {{"TMPDIR", temporary},
                                         {"CUPS_FILETYPE", type},
                                         {"KALMO_TICKET_FILE", ticketFile}},
                         .input = input,
                         .name = "Kalmo_Office"};
        if (!file.empty()) made.arguments.push_back(file);
        return made;
    }
    /// kalmo-ticket.
    ProgramEnd run(const std::vector<std::string>& arguments) {
        return RunProgram({.program = BuiltProgram("kalmo-ticket"), .arguments = arguments});
    }

    const path folder = MakeFolder("cups filter");
    const path temporary = MakeFolder("temporary");
    const path plain = folder / "d00012-001 with spaces.pdf";
    const path sent = folder / "d00013-001.pdf";
    const path letter = folder / "letter.pdf";
    const path ticketFile = folder / "ticket.plist";
    const path documentFile = folder / "clean.pdf";
    const std::string ticket = "<plist>\r\npasscode 4711</plist>";
    const std::string digest = job_ticket::TicketDigest(ticket);
    const std::string option = "com.kalmo.print.ticket=" + digest;
};

TEST_F(TicketFilter, LetsTheJobThroughWithItsTicket) {
    const std::pair<const char*, ProgramCall> rows[] = {
        {"file", call("Duplex=None " + option, sent)},
        {"standard input", call(option, {}, sent)},
        {"blanks and quotes", call("a=x\\ com.y=1 b='c d' " + option + " job-uuid=urn:x", sent)},
    };
    for (const auto& [why, made] : rows) {
        SCOPED_TRACE(why);
        const ProgramEnd end = RunProgram(made);
        EXPECT_EQ(end.exitCode, 0) << end.errors;
        EXPECT_EQ(ReadFile(ticketFile), ticket);
        EXPECT_EQ(status(ticketFile).permissions(), std::filesystem::perms(0600));
        EXPECT_TRUE(end.output.starts_with("%PDF-"));
        EXPECT_FALSE(Contains(end.output, "4711"));
        EXPECT_TRUE(is_empty(temporary));
        remove(ticketFile);
    }
}

TEST_F(TicketFilter, PassesWhatHasNoTicketUnchanged) {
    // The ticket of the job before must not be taken for this job's.
    const std::tuple<const char*, ProgramCall, path> rows[] = {
        {"no option", call("Duplex=None", plain), plain},
        {"a foreign attachment", call("Duplex=None", sent), sent},
        {"a banner page", call(option, plain, "/dev/null", "job-sheet"), plain},
    };
    for (const auto& [why, made, expected] : rows) {
        SCOPED_TRACE(why);
        WriteFile(ticketFile, "an earlier job's");
        const ProgramEnd end = RunProgram(made);
        EXPECT_EQ(end.exitCode, 0) << end.errors;
        EXPECT_TRUE(end.output == ReadFile(expected));
        EXPECT_FALSE(exists(ticketFile));
    }
}

TEST_F(TicketFilter, FailsRatherThanPrintWithoutTheTicket) {
    const std::pair<const char*, ProgramCall> rows[] = {
        {"missing", call(option, plain)},
        {"changed", call("com.kalmo.print.ticket=" + job_ticket::TicketDigest("other"), sent)},
        {"cut short", call(option.substr(0, option.size() - 2), sent)},
        {"of nothing", call("com.kalmo.print.ticket=" + job_ticket::TicketDigest(""), plain)},
        {"no value", call("com.kalmo.print.ticket", sent)},
        {"behind a line end that stops the parsing", call("a=x\ry " + option, plain)},
        {"no PDF", call(option, letter)},
        {"no such file", call(option, folder / "nowhere.pdf")},
    };
    for (const auto& [why, made] : rows) {
        SCOPED_TRACE(why);
        const ProgramEnd end = RunProgram(made);
        EXPECT_EQ(end.exitCode, 1);
        EXPECT_TRUE(end.errors.starts_with("ERROR: ")) << end.errors;
        EXPECT_FALSE(Contains(end.errors, "4711"));
        EXPECT_TRUE(end.output.empty());
        EXPECT_FALSE(exists(ticketFile));
        EXPECT_TRUE(is_empty(temporary));
    }
}

TEST_F(TicketFilter, LeavesNothingBehindWhenTheJobIsCancelled) {
    const path pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    Program filter(call(option, {}, pipe));
    std::ofstream open(pipe, std::ios::binary);  // the document never ends
    open << "%PDF-1.4\n" << std::flush;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (is_empty(temporary) && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    const auto made = std::filesystem::directory_iterator(temporary);
    ASSERT_NE(made, std::filesystem::directory_iterator());
    EXPECT_EQ(made->status().permissions(), std::filesystem::perms(0700));
    filter.signal(SIGTERM);
    EXPECT_EQ(filter.wait().exitCode, 1);
    EXPECT_TRUE(is_empty(temporary));
}

TEST_F(TicketFilter, CommandLineTakesOutWhatTheDigestNames) {
    umask(0);
    const ProgramEnd end =
        run({sent, "--digest", digest, "--ticket", ticketFile, "--document", documentFile});
    EXPECT_EQ(end.exitCode, 0) << end.errors;
    EXPECT_EQ(ReadFile(ticketFile), ticket);
    EXPECT_FALSE(Contains(ReadFile(documentFile), "4711"));
    for (const path& file : {ticketFile, documentFile})
        EXPECT_EQ(status(file).permissions(), std::filesystem::perms(0600)) << file;
}

TEST_F(TicketFilter, CommandLineRefusesInOneLineAndWritesNothing) {
    const std::string other = job_ticket::TicketDigest("other");
    const std::tuple<const char*, std::vector<std::string>, int> rows[] = {
        {"changed", {sent, "--digest", other}, 1},     {"missing", {plain, "--digest", digest}, 1},
        {"no such file", {folder / "nowhere.pdf"}, 1}, {"no document", {}, 2},
        {"unknown option", {sent, "--what"}, 2},       {"two documents", {sent, plain}, 2},
    };
    for (const auto& [why, start, code] : rows) {
        SCOPED_TRACE(why);
        std::vector<std::string> arguments = start;
        arguments.insert(arguments.end(), {"--document", documentFile});
        const ProgramEnd end = run(arguments);
        EXPECT_EQ(end.exitCode, code) << end.errors;
        EXPECT_FALSE(end.errors.empty());
        EXPECT_TRUE(code == 2 || std::ranges::count(end.errors, '\n') == 1) << end.errors;
        EXPECT_FALSE(Contains(end.errors, "4711"));
        EXPECT_FALSE(exists(documentFile));
    }
    EXPECT_EQ(run({sent, "--ticket", ticketFile}).exitCode, 2) << "a ticket needs its digest";
}

}  // namespace
}  // namespace kalmo::test
