// Print servers that do not answer, each in its own way. They listen on the loopback, or nowhere.
#pragma once

#include <vector>

namespace kalmo::test {

/// A socket on the loopback, which listens nowhere yet, and its port.
struct LoopbackSocket {
    LoopbackSocket();
    int socket, port;
};

enum class Silence {
    closedPort,   // nobody listens
    silent,       // takes connections, never answers
    fullBacklog,  // does not even take them
};
inline constexpr Silence kSilences[] = {Silence::closedPort, Silence::silent, Silence::fullBacklog};

/// As long as it lives, CUPS_SERVER names it, for this program and those it starts.
class DeadServer final {
public:
    explicit DeadServer(Silence silence);
    ~DeadServer();
    DeadServer(const DeadServer&) = delete;
    DeadServer& operator=(const DeadServer&) = delete;

private:
    std::vector<int> sockets_;
};

}  // namespace kalmo::test
