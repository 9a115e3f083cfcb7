#include "support/dead_servers.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace kalmo::test {
namespace {

constexpr int kEnoughToFillABacklog = 8;

sockaddr_in Loopback(int port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<in_port_t>(port));
    return address;
}

}  // namespace

LoopbackSocket::LoopbackSocket() : socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address = Loopback(0);
    socklen_t size = sizeof address;
    bind(socket, reinterpret_cast<const sockaddr*>(&address), size);
    getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    port = ntohs(address.sin_port);
}

DeadServer::DeadServer(Silence silence) {
    const LoopbackSocket server;
    sockets_.push_back(server.socket);
    setenv("CUPS_SERVER", ("127.0.0.1:" + std::to_string(server.port)).c_str(), 1);
    if (silence == Silence::closedPort) return;
    listen(server.socket, silence == Silence::fullBacklog ? 0 : SOMAXCONN);
    if (silence == Silence::silent) return;
    const sockaddr_in address = Loopback(server.port);
    for (int i = 0; i < kEnoughToFillABacklog; ++i) {
        sockets_.push_back(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        connect(sockets_.back(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
    }
}

DeadServer::~DeadServer() {
    unsetenv("CUPS_SERVER");
    for (const int one : sockets_) close(one);
}

}  // namespace kalmo::test
