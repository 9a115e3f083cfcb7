// Programs run by tests: started, watched, and gone with the test whatever happens.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace kalmo::test {

/// A program of the build folder.
[[nodiscard]] std::filesystem::path BuiltProgram(const std::string& name);

struct ProgramCall {
    std::filesystem::path program;
    std::vector<std::string> arguments;
    /// Added to the test's own; an empty value removes the variable.
    std::map<std::string, std::string> environment;
    std::filesystem::path input = "/dev/null";
    /// What the program is told its own name is; empty: its path.
    std::string name;
};

struct ProgramEnd {
    /// 128 + signal when one ended it; -1 when it did not end in time and was killed.
    int exitCode = -1;
    std::string output, errors;
};

/// A running program. It gets SIGTERM when the test program dies; the destructor ends it.
class Program {
public:
    explicit Program(const ProgramCall& call);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// False once it has ended.
    [[nodiscard]] bool running();
    void signal(int number) const;
    ProgramEnd wait(std::chrono::seconds limit = std::chrono::seconds(60));

private:
    bool endedWithin(std::chrono::milliseconds limit);

    std::filesystem::path folder_;
    pid_t pid_ = -1;
    bool ended_ = false;
    int status_ = 0;
};

/// Starts it and waits for its end.
ProgramEnd RunProgram(const ProgramCall& call);

}  // namespace kalmo::test
