// A print server of a few lines that goes wrong on purpose, with one queue of any name.
#pragma once

#include <cups/cups.h>

#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "support/dead_servers.h"

namespace kalmo::test {

enum class Fault { silent, hangsUp, busy, unavailable, forbidden, half, endless, agreesToEncrypt };

struct ServerPlan {
    /// What it does instead of answering; 0 is HTTP's OPTIONS, which asks for encryption.
    std::map<int, Fault> faults;
    /// What it has instead of what it was sent; empty: nothing.
    std::map<std::string, std::string> keeps;
};

/// It listens on the loopback, in clear, and answers as many at once as come.
class FailingServer final {
public:
    explicit FailingServer(ServerPlan plan);
    ~FailingServer();
    FailingServer(const FailingServer&) = delete;
    FailingServer& operator=(const FailingServer&) = delete;

    [[nodiscard]] std::string port() const { return std::to_string(listener_.port); }
    /// The operations that it was asked for so far.
    [[nodiscard]] std::vector<int> asked();
    [[nodiscard]] bool wasAsked(int operation);

private:
    void accept();
    void serve(http_t* http);
    bool answer(http_t* http, ipp_t* request);
    bool fail(http_t* http, Fault fault);
    [[nodiscard]] ipp_t* jobAnswer(ipp_t* request);

    const ServerPlan plan_;
    const LoopbackSocket listener_;
    std::mutex mutex_;  // guards what follows
    std::vector<int> asked_;
    std::vector<http_t*> connections_;
    ipp_t* job_ = nullptr;
    std::vector<std::thread> threads_;
    std::thread acceptor_;
};

}  // namespace kalmo::test
