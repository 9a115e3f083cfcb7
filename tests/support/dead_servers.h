// Print servers that do not answer, each in its own way. They listen on the loopback, or nowhere.
#pragma once

#include <string>
#include <vector>

namespace kalmo::test {

enum class Silence {
    closedPort,   // nobody listens
    silent,       // takes connections, never answers
    fullBacklog,  // does not even take them
};
inline constexpr Silence kSilences[] = {Silence::closedPort, Silence::silent, Silence::fullBacklog};
[[nodiscard]] const char* Describe(Silence silence);

class DeadServer final {
public:
    explicit DeadServer(Silence silence);
    ~DeadServer();
    DeadServer(const DeadServer&) = delete;
    DeadServer& operator=(const DeadServer&) = delete;
    /// For CUPS_SERVER: "127.0.0.1:PORT".
    [[nodiscard]] const std::string& name() const { return name_; }

private:
    std::vector<int> sockets_;
    std::string name_;
};

}  // namespace kalmo::test
