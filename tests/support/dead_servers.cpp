#include "support/dead_servers.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace kalmo::test {
namespace {

constexpr int kEnoughToFillABacklog = 8;

int NewSocket(int flags = 0) { return socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | flags, 0); }

sockaddr_in LoopbackAddress(int bound) {
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    getsockname(bound, reinterpret_cast<sockaddr*>(&address), &size);
    return address;
}

}  // namespace

const char* Describe(Silence silence) {
    constexpr const char* kTexts[] = {"closed port", "silent server", "full backlog"};
    return kTexts[static_cast<int>(silence)];
}

DeadServer::DeadServer(Silence silence) {
    const int server = NewSocket();
    sockets_.push_back(server);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    address = LoopbackAddress(server);
    const std::string name = "127.0.0.1:" + std::to_string(ntohs(address.sin_port));
    setenv("CUPS_SERVER", name.c_str(), 1);
    if (silence == Silence::closedPort) return;
    listen(server, silence == Silence::fullBacklog ? 0 : SOMAXCONN);
    if (silence == Silence::silent) return;
    for (int i = 0; i < kEnoughToFillABacklog; ++i) {
        sockets_.push_back(NewSocket(SOCK_NONBLOCK));
        connect(sockets_.back(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
    }
}

DeadServer::~DeadServer() {
    unsetenv("CUPS_SERVER");
    for (const int one : sockets_) close(one);
}

}  // namespace kalmo::test
