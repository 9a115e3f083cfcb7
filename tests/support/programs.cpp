#include "support/programs.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <thread>

#include "support/private_home.h"

namespace kalmo::test {
namespace {

std::map<std::string, std::string> MergedEnvironment(const ProgramCall& call) {
    std::map<std::string, std::string> merged = Environment();
    for (const auto& [name, value] : call.environment) {
        merged[name] = value;
        if (value.empty()) merged.erase(name);
    }
    return merged;
}

std::vector<std::string> Lines(const std::map<std::string, std::string>& environment) {
    std::vector<std::string> lines;
    for (const auto& [name, value] : environment) lines.push_back(name + "=" + value);
    return lines;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

void Redirect(const char* file, int flags, int fd) {
    const int opened = open(file, flags, 0600);
    if (opened < 0 || dup2(opened, fd) < 0) _exit(127);
    close(opened);
}

}  // namespace

std::filesystem::path BuiltProgram(const std::string& name) {
    return std::filesystem::path(KALMO_BINARY_DIR) / "bin" / name;
}

Program::Program(const ProgramCall& call) : folder_(MakeFolder("program")) {
    // All memory is got before the fork: the test may have threads.
    std::vector<std::string> arguments{call.name.empty() ? call.program.string() : call.name};
    arguments.insert(arguments.end(), call.arguments.begin(), call.arguments.end());
    std::vector<std::string> environment = Lines(MergedEnvironment(call));
    const std::vector<char*> argumentPointers = Pointers(arguments);
    const std::vector<char*> environmentPointers = Pointers(environment);
    const std::string output = folder_ / "output";
    const std::string errors = folder_ / "errors";
    pid_ = fork();
    if (pid_ != 0) return;
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    Redirect(call.input.c_str(), O_RDONLY, STDIN_FILENO);
    Redirect(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO);
    Redirect(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
    execve(call.program.c_str(), argumentPointers.data(), environmentPointers.data());
    _exit(127);
}

Program::~Program() {
    if (running()) signal(SIGTERM);
    if (!endedWithin(std::chrono::seconds(5))) wait(std::chrono::seconds(0));
}

bool Program::running() { return !endedWithin(std::chrono::milliseconds(0)); }

void Program::signal(int number) const {
    if (pid_ > 0 && !ended_) kill(pid_, number);
}

bool Program::endedWithin(std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!ended_ && waitpid(pid_, &status_, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() >= end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return ended_ = true;
}

ProgramEnd Program::wait(std::chrono::seconds limit) {
    const bool inTime = endedWithin(limit);
    if (!inTime) {
        signal(SIGKILL);
        endedWithin(std::chrono::seconds(5));
    }
    ProgramEnd end{-1, ReadFile(folder_ / "output"), ReadFile(folder_ / "errors")};
    if (inTime) end.exitCode = WIFEXITED(status_) ? WEXITSTATUS(status_) : 128 + WTERMSIG(status_);
    return end;
}

ProgramEnd RunProgram(const ProgramCall& call) { return Program(call).wait(); }

}  // namespace kalmo::test
