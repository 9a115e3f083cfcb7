// Jobs on bad networks: servers that change them, fail in the middle, or offer no encryption.
#include <future>

#include "print_dialog/background.h"
#include "print_dialog/job_delivery.h"
#include "print_dialog/printer_requests.h"
#include "print_dialog/remote_queue.h"
#include "print_dialog/server_encryption.h"
#include "print_dialog/time_limit.h"
#include "programs/failing_server.h"
#include "programs/private_cupsd.h"
#include "support/dead_servers.h"

namespace kalmo::test {
namespace {

namespace fs = std::filesystem;

/// By name no loopback, so that it counts as another machine; it leads there all the same.
constexpr char kElsewhere[] = "127.1:";
constexpr char kHere[] = "127.0.0.1:";

struct Delivery {
    JobResult result;
    qint64 milliseconds = 0;
};

/// As a worker does it, with a thread's own idea of the server.
std::future<Delivery> Deliver(
    const std::string& server, const JobOrder& order,
    const std::shared_ptr<DeliveryState>& state = std::make_shared<DeliveryState>()) {
    return std::async(std::launch::async, [=] {
        cupsSetServer(server.c_str());
        QElapsedTimer time;
        time.start();
        auto result = DeliverToQueue(order, {*state, [](JobStage, int) {}});
        return Delivery{std::move(result), time.elapsed()};
    });
}

struct BadNetworkTest : testing::Test {
    void SetUp() override { WriteFile(order_.document, MakePdf(2)); }
    JobOrder order_ = {
        .document = MakeFolder("documents") / "report.pdf",
        .title = "report",
        .queue = "office",
        .options = {{"Duplex", "DuplexTumble"},
                    {"KLEconomode", "True"},
                    {"copies", "5"},
                    {"page-ranges", "1-1,3-4"},
                    {"orientation-requested", "4"},
                    {"com.kalmo.print.ticket", "sha256-00"}},
        .texts = {{.keyword = "Duplex",
                   .text = "Two-sided",
                   .choices = {{"None", "Off"}, {"DuplexTumble", "Short edge"}}}},
    };
};

TEST_F(BadNetworkTest, WhatAServerMakesOfAJobIsNamedTheTicketFirst) {
    const std::pair<std::map<std::string, std::string>, std::vector<std::string>> rows[] = {
        {{}, {}},
        // Other types for the same values.
        {{{"copies", "5"}, {"KLEconomode", "True"}, {"orientation-requested", "4"}}, {}},
        {{{"Duplex", ""}, {"copies", "1"}, {"orientation-requested", "3"}},
         {"Two-sided: Short edge was dropped", "Copies: 5 became 1",
          "Orientation: Landscape became Portrait"}},
        {{{"Duplex", "None"}, {"page-ranges", ""}, {"com.kalmo.print.ticket", ""}},
         {"The printer gets none", "Two-sided: Short edge became Off",
          "Pages: 1, 3-4 was dropped"}},
        // A server that keeps its jobs private.
        {{{"Duplex", ""}, {"job-name", ""}}, {}},
    };
    for (const auto& [keeps, expected] : rows) {
        FailingServer server({.keeps = keeps});
        const auto told = Deliver(kHere + server.port(), order_).get().result;
        EXPECT_EQ(told.end, JobResult::End::printed) << told.message;
        ASSERT_EQ(told.differences.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_TRUE(told.differences[i].starts_with(expected[i])) << told.differences[i];
    }
}

TEST_F(BadNetworkTest, AServerThatCannotTellInTimeCostsTwoSecondsAndNoWord) {
    for (const auto fault : {Fault::silent, Fault::hangsUp, Fault::half, Fault::endless}) {
        SCOPED_TRACE(static_cast<int>(fault));
        FailingServer server({.faults = {{IPP_OP_GET_JOB_ATTRIBUTES, fault}}});
        const auto told = Deliver(kHere + server.port(), order_).get();
        EXPECT_EQ(told.result.end, JobResult::End::printed);
        EXPECT_TRUE(told.result.differences.empty());
        EXPECT_LT(told.milliseconds, 3000);
    }
    EXPECT_TRUE(Wait([] { return RunningWorkers() == 0; })) << "nobody reads an endless answer";
}

TEST_F(BadNetworkTest, AServerThatFailsMidJobCostsALineAndNoJob) {
    order_.ticket = "<plist/>";
    setenv("TMPDIR", MakeFolder("tmp").c_str(), 1);
    constexpr std::tuple<int, Fault, const char*> rows[] = {
        {IPP_OP_CREATE_JOB, Fault::silent, "does not answer"},
        {IPP_OP_CREATE_JOB, Fault::busy, "too busy"},
        {IPP_OP_CREATE_JOB, Fault::unavailable, "too busy"},
        {IPP_OP_SEND_DOCUMENT, Fault::silent, "does not answer"},
        {IPP_OP_SEND_DOCUMENT, Fault::hangsUp, "does not answer"},
        {IPP_OP_SEND_DOCUMENT, Fault::busy, "too busy"},
    };
    std::vector<std::unique_ptr<FailingServer>> servers;
    std::vector<std::future<Delivery>> deliveries;
    for (const auto& [operation, fault, line] : rows) {
        servers.push_back(
            std::make_unique<FailingServer>(ServerPlan{.faults = {{operation, fault}}}));
        deliveries.push_back(Deliver(kHere + servers.back()->port(), order_));
    }
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        SCOPED_TRACE(i);
        const auto& [operation, fault, line] = rows[i];
        const auto told = deliveries[i].get();
        EXPECT_EQ(told.result.end, JobResult::End::failed);
        EXPECT_TRUE(Contains(told.result.message, line)) << told.result.message;
        EXPECT_LT(told.milliseconds, 40000) << "before the window gives it up";
        EXPECT_EQ(servers[i]->wasAsked(IPP_OP_CANCEL_JOB), operation == IPP_OP_SEND_DOCUMENT);
    }
    EXPECT_TRUE(fs::is_empty(getenv("TMPDIR")));
}

TEST_F(BadNetworkTest, ACancelledJobLeavesASilentServerAtOnceAndNothingBehind) {
    setenv("TMPDIR", MakeFolder("tmp").c_str(), 1);
    for (const std::string ticket : {"<plist/>", ""}) {
        order_.ticket = ticket;
        // So large that it is still being written.
        if (ticket.empty()) WriteFile(order_.document, MakePdf(2) + std::string(16 << 20, ' '));
        FailingServer server({.faults = {{IPP_OP_SEND_DOCUMENT, Fault::silent}}});
        const auto state = std::make_shared<DeliveryState>();
        auto delivery = Deliver(kHere + server.port(), order_, state);
        ASSERT_TRUE(Wait([&] { return server.wasAsked(IPP_OP_SEND_DOCUMENT); }));
        EXPECT_TRUE(fs::is_empty(getenv("TMPDIR"))) << "however the program ends now";
        state->cancel();
        const auto told = delivery.get();
        EXPECT_EQ(told.result.end, JobResult::End::cancelled);
        EXPECT_LT(told.milliseconds, 3000);
        EXPECT_TRUE(server.wasAsked(IPP_OP_CANCEL_JOB));
    }
}

TEST_F(BadNetworkTest, APPDFileThatDoesNotComeWholeIsNotKept) {
    // What a GET asks for counts as 0 here.
    const std::tuple<Fault, const char*, const char*> rows[] = {
        {Fault::endless, "", "does not hand out its description file"},
        {Fault::forbidden, "", "does not hand out its description file"},
        {Fault::unavailable, "does not answer", ""},
        {Fault::half, "does not answer", ""},
    };
    for (const auto& [fault, error, note] : rows) {
        SCOPED_TRACE(static_cast<int>(fault));
        FailingServer server({.faults = {{0, fault}}});
        const auto found = AnswerWithin<PrinterDescription>(std::chrono::seconds(5), [&] {
            cupsSetServer((kHere + server.port()).c_str());
            return FetchPrinterDescription("office");
        });
        ASSERT_TRUE(found);
        EXPECT_TRUE(Contains(found->error, error) && found->error.empty() == !*error);
        EXPECT_TRUE(Contains(found->note, note) && found->note.empty() == !*note);
        EXPECT_EQ(found->ppdPath, "");
        EXPECT_FALSE(exists(fs::path(getenv("XDG_CACHE_HOME")) / "kalmo-print"));
    }
}

TEST_F(BadNetworkTest, SecretsNeedAnEncryptedConnectionToAnotherMachine) {
    const auto site = MakeFolder("site");
    fs::create_directories(site / "kalmo-print");
    WriteFile(site / "kalmo-print/site.conf", "[network]\nallowUnencryptedSecrets=true\n");
    struct {
        const char *why, *host;
        bool secret, allowed, arrives;
    } const rows[] = {
        {"to this machine", kHere, true, false, true},
        {"nothing secret", kElsewhere, false, false, true},
        {"secret", kElsewhere, true, false, false},
        {"secret, but the site allows it", kElsewhere, true, true, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        setenv("XDG_CONFIG_DIRS", row.allowed ? site.c_str() : "/nonexistent", 1);
        order_.secret = row.secret;
        FailingServer server({});
        const auto told = Deliver(row.host + server.port(), order_).get().result;
        EXPECT_EQ(told.end, row.arrives ? JobResult::End::printed : JobResult::End::failed);
        EXPECT_EQ(server.wasAsked(IPP_OP_CREATE_JOB), row.arrives);
        EXPECT_EQ(Contains(told.message, "offers no encrypted connection"), !row.arrives);
    }
}

TEST_F(BadNetworkTest, AServerThatHangsWhileEncryptingEndsAJobWithSecretsOnly) {
    order_.secret = true;
    FailingServer first({.faults = {{0, Fault::agreesToEncrypt}}});
    auto refused = Deliver(kElsewhere + first.port(), order_);
    order_.secret = false;
    FailingServer second({.faults = {{0, Fault::agreesToEncrypt}}});
    EXPECT_EQ(Deliver(kElsewhere + second.port(), order_).get().result.end,
              JobResult::End::printed);
    EXPECT_EQ(refused.get().result.end, JobResult::End::failed);
    EXPECT_EQ(first.asked(), std::vector{0});
}

TEST(ServerEncryptionTest, OnlyTheLoopbackIsThisMachine) {
    for (const char* local : {"/run/cups/cups.sock", "localhost", "LocalHost", "127.0.0.1",
                              "127.8.8.8", "::1", "[::1]"})
        EXPECT_TRUE(IsLocalServer(local)) << local;
    for (const char* other : {"", "127.example.org", "127.1", "localhost.example.org", "::2",
                              "128.0.0.1", "print.example.org"})
        EXPECT_FALSE(IsLocalServer(other)) << other;
}

TEST(RemoteQueueTest, OnlyAnotherServersQueueIsAskedForItsPPDAndKnownToGetJobsInClear) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"ipp://far.example.org/printers/kalmo", "far.example.org:631/printers/kalmo",
         "far.example.org"},
        {"ipps://u:p@far:8631/classes/all%20kalmos?waitjob=no", "far:8631/classes/all kalmos", ""},
        {"ipp://far/printers/a?waitjob=no&encryption=required", "far:631/printers/a", ""},
        {"ipp://far/ipp/print", "", ""},
        {"ipp://far/printers/a/b", "", ""},
        {"ipp://far/printers/a%0d%0aX-Evil", "", ""},
        {"http://far/printers/kalmo", "", "far"},
        {"file:///printers/kalmo", "", ""},
        {"socket://far:9100", "", ""},
        {"dnssd://Office%20%40%20far._ipp._tcp.local/cups?uuid=1", "", "Office @ far"},
        {"dnssd://Office%20%40%20far._ipps._tcp.local/cups?uuid=1", "", ""},
        {"dnssd://Kalmo._ipp._tcp.local/?uuid=1", "", ""},
    };
    for (const auto& [device, expected, clear] : rows) {
        EXPECT_EQ(ClearHostOf(device), clear) << device;
        const auto queue = RemoteQueueOf(device);
        EXPECT_EQ(queue ? queue->host + ":" + std::to_string(queue->port) + queue->resource : "",
                  expected)
            << device;
    }
}

}  // namespace
}  // namespace kalmo::test
