// After many jobs that hold secrets, the secrets are with the printer and nowhere else. As a test
// it takes a few jobs of each kind; scripts/find-secrets as many as it is told.
#include <atomic>
#include <fstream>
#include <sstream>
#include <thread>

#include "print_dialog/presets.h"
#include "print_dialog/shown_window.h"
#include "programs/private_cupsd.h"
#include "support/ticket_files.h"

namespace kalmo::test {
namespace {

namespace fs = std::filesystem;

/// A passcode, a card, a prefix, and a recipient that stand nowhere else.
constexpr std::array kSecrets = {"8264019375", "4929150163820471", "8#*7", "495559176246",
                                 "Quendolyn"};

/// Reads what everybody can read of every process, over and over.
class ProcessWatch final {
public:
    [[nodiscard]] std::string seen() const { return seen_; }
    [[nodiscard]] int rounds() const { return rounds_; }
    void end() {
        thread_.request_stop();
        thread_.join();
    }

private:
    void look() {
        for (const auto& process : fs::directory_iterator("/proc")) {
            if (std::atoi(process.path().filename().c_str()) == getpid()) continue;
            for (const char* file : {"cmdline", "environ"}) {
                // The process may end meanwhile, which the operator bears.
                std::ostringstream read;
                read << std::ifstream(process.path() / file).rdbuf();
                const std::string text = read.str();
                for (const char* secret : kSecrets)
                    if (Contains(text, secret)) seen_ += text + '\n';
            }
        }
        ++rounds_;
    }

    std::string seen_;
    std::atomic<int> rounds_ = 0;
    std::jthread thread_{[this](const std::stop_token& stop) {
        while (!stop.stop_requested()) look();
    }};
};

struct DayOfJobs : QueueTest, WindowInFront {
    void SetUp() override {
        QueueTest::SetUp();
        setenv("XDG_CONFIG_HOME", MakeFolder("config").c_str(), 1);
        setenv("TMPDIR", temporary_.c_str(), 1);
    }
    /// Secure print with a passcode that a fax's keys stay beside, or a fax.
    fs::path ticket(int jobType) {
        WriteFile(ticket_,
                  TicketFile(JobTypeEntry(jobType, TextEntry("SecurePrintPassword", kSecrets[0])) +
                             DictionaryEntry("com.kalmo.print.FaxOptions",
                                             TextEntry("CreditCard", kSecrets[1]) +
                                                 TextEntry("DialingPrefix", kSecrets[2])) +
                             "<key>com.kalmo.print.FaxRecipientList</key><array><dict>" +
                             TextEntry("FaxNumber", kSecrets[3]) +
                             TextEntry("FirstName", kSecrets[4]) + "</dict></array>"));
        fs::permissions(ticket_, fs::perms(0600));
        return ticket_;
    }
    void run(const std::vector<std::string>& arguments) {
        const auto end =
            RunProgram({.program = BuiltProgram("kalmo-print"), .arguments = arguments});
        EXPECT_EQ(end.exitCode, 0) << end.errors;
        for (const char* secret : kSecrets)
            EXPECT_FALSE(Contains(end.output + end.errors, secret)) << secret;
    }
    void printInTheWindow(int number) {
        window_ = ShowWindow(
            {.document = document.string(), .printer = "kalmo", .ticket = ticket(6).string()});
        window_->findPrinters();
        waitToPrint();
        print()->click();
        expectPrinted();
        savePreset("Preset " + std::to_string(number % 4));
    }
    void savePreset(const std::string& name) {
        PrintJobHost host;
        ASSERT_TRUE(host.setPrinter({"kalmo", SamplePPD("kalmo-office-color")}));
        ASSERT_TRUE(host.readTicket(ReadFile(ticket(5))));
        EXPECT_TRUE(SavePreset(name, PresetBytes(host)));
    }
    /// Files below `folder` that hold a secret, or its name on the way there.
    static std::string holders(const fs::path& folder,
                               const std::function<bool(fs::path)>& mayHold) {
        std::string found;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (!entry.is_regular_file() || mayHold(entry.path())) continue;
            const std::string bytes = entry.path().string() + ReadFile(entry);
            for (const char* secret : kSecrets)
                if (Contains(bytes, secret)) found += entry.path().string() + ": " + secret + '\n';
        }
        return found;
    }

    fs::path temporary_ = MakeFolder("tmp");
    fs::path own_ = MakeFolder("own");  // what the user keeps: tickets written, folders printed to
    fs::path ticket_ = own_ / "ticket.plist";
};

TEST_F(DayOfJobs, LeavesNoSecretBehind) {
    const char* told = std::getenv("KALMO_DAY_OF_JOBS");
    const int rounds = told ? std::atoi(told) : 2;
    ProcessWatch processes;
    for (int round = 0; round < rounds; ++round) {
        for (const int jobType : {6, 5}) {
            run({"--no-dialog", "-d", "kalmo", "--ticket", ticket(jobType), document});
            run({"--no-dialog", "--ppd", SamplePPD("kalmo-production"), "--output", own_,
                 "--ticket", ticket(jobType), document});
            run({"--dry-run", "--json", "--ppd", SamplePPD("kalmo-production"), "--ticket",
                 ticket(jobType), document});
        }
        printInTheWindow(round);
    }
    const auto jobs = JobsOnTheServer();
    EXPECT_EQ(std::ssize(jobs), rounds * 3);
    for (const int job : jobs) {
        EXPECT_TRUE(server.printed(job));
        const std::string attributes =
            server.attributes(job, "bob") + server.attributes(job, "alice");
        for (const char* secret : kSecrets) EXPECT_FALSE(Contains(attributes, secret)) << secret;
    }
    processes.end();
    EXPECT_GT(processes.rounds(), 0);
    EXPECT_EQ(processes.seen(), "") << "in a command line or an environment";
    for (const char* secret : kSecrets) EXPECT_EQ(server.leaks(jobs.back(), secret), "") << secret;
    EXPECT_TRUE(fs::is_empty(temporary_)) << "temporary files are left";
    // The job itself, on its way and where it has arrived, and what the user keeps.
    const auto mayHold = [this](const fs::path& file) {
        const std::string path = file.string();
        return path.starts_with(own_.string()) || path.starts_with(out.string()) ||
               Contains(path, "/spool/");
    };
    EXPECT_EQ(holders(std::getenv("HOME"), mayHold), "");
    std::printf("%zu jobs on the server, %d looks at all processes\n", jobs.size(),
                processes.rounds());
}

}  // namespace
}  // namespace kalmo::test
