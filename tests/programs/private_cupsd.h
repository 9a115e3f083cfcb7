// A CUPS server of a test's own: real cupsd and filters, own folders, reached by its socket.
//
// Works as root and as any user; several run beside each other; it goes with the test.
#pragma once

#include <cups/cups.h>

#include "support/pdf_documents.h"
#include "support/programs.h"
#include "support/qt_test.h"

namespace kalmo::test {

/// The numbers of all jobs that the server ever took.
std::vector<int> JobsOnTheServer();

enum class Reach {
    socket,   // its domain socket
    network,  // also a port of the loopback
};

class PrivateCupsd {
public:
    /// Starts the server and points CUPS_SERVER, for this program and those it starts, there. What
    /// the ticket filter is given lies in outFolder() afterwards: "ticket" as it recovered it,
    /// "options", and "commands", the command lines of all processes that ran beside it.
    /// `printers`: a printers.conf for queues that are there from the start; lpadmin takes long to
    /// add a thousand.
    explicit PrivateCupsd(Reach reach = Reach::socket, const std::string& printers = {});
    ~PrivateCupsd();
    PrivateCupsd(const PrivateCupsd&) = delete;
    PrivateCupsd& operator=(const PrivateCupsd&) = delete;

    /// Points CUPS_SERVER here again, by its socket.
    void use() const;
    /// Of Reach::network, in decimal.
    [[nodiscard]] const std::string& port() const { return port_; }

    /// Empty when the server answers; else why not.
    [[nodiscard]] std::string problem();
    /// What is printed arrives there: outFolder()/QUEUE.prn.
    [[nodiscard]] std::filesystem::path outFolder() const { return root_ / "out"; }
    /// Everything cupsd and the filters log, at level debug.
    [[nodiscard]] std::string log() const;

    /// A queue that prints into a file; without a PPD file a raw one. The answer is lpadmin's.
    ProgramEnd addQueue(const std::string& queue, const std::filesystem::path& ppd);
    /// Puts other bytes in the place of the queue's PPD file.
    void damagePPD(const std::string& queue, const std::string& bytes);
    /// A queue on that device; without a PPD file, `ppd` is empty.
    static ProgramEnd addQueueOn(const std::string& device, const std::string& queue,
                                 const std::filesystem::path& ppd);

    /// Waits until the job is printed, cancelled, aborted or, after a failed filter, stopped; 30 s
    /// at most. False, and the log in the test's output, unless it is printed.
    bool printed(int job);
    /// Every attribute the server tells `user` about the job, one "name=value" line each.
    std::string attributes(int job, const std::string& user);
    /// Where people other than its owner read `secret` once the job is printed: command lines,
    /// options, what the server tells them, logs, files open to everybody. One line each.
    std::string leaks(int job, const std::string& secret);

private:
    void makeFolders();
    void installTicketFilter();
    void writeConfiguration(Reach reach);
    void handOverTo(const std::string& group);

    std::filesystem::path root_;
    std::string port_;
    std::unique_ptr<Program> server_;
};

/// A server with a queue of the sample printer, "kalmo", and one of another maker's, "other".
struct QueueTest : testing::Test {
    void SetUp() override {
        ASSERT_EQ(server.problem(), "");
        ASSERT_EQ(server.addQueue("kalmo", SamplePPD("kalmo-office-color")).exitCode, 0);
        ASSERT_EQ(server.addQueue("other", WritePPD("Other")).exitCode, 0);
        WriteFile(document, MakePdf(4));
    }
    PrivateCupsd server;
    const std::filesystem::path document = MakeFolder("documents") / "report.pdf";
    const std::filesystem::path out = server.outFolder();
};

}  // namespace kalmo::test
