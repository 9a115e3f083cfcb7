#include "support/private_home.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "system/presence.h"

namespace kalmo::test {
namespace {

std::filesystem::path home;  // NOLINT: lives as long as the program

/// A process that a test splits off leaves it alone.
pid_t owner = 0;

void RemoveHome() {
    if (getpid() != owner) return;
    std::error_code ignored;
    std::filesystem::remove_all(home, ignored);
}

class TidyUp final : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { before_ = Environment(); }
    void OnTestEnd(const testing::TestInfo&) override {
        for (const auto& [name, value] : Environment())
            if (!before_.contains(name)) unsetenv(name.c_str());
        for (const auto& [name, value] : before_) setenv(name.c_str(), value.c_str(), 1);
        InstallPresence(UnattendedPresence());
    }
    std::map<std::string, std::string> before_;
};

}  // namespace

void UsePrivateHome() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kalmo-test-XXXXXX").string();
    home = mkdtemp(pattern.data());
    owner = getpid();
    std::atexit(RemoveHome);
    setenv("HOME", home.c_str(), 1);
    for (const auto& [variable, folder] : {std::pair{"XDG_CONFIG_HOME", "config"},
                                           {"XDG_CACHE_HOME", "cache"},
                                           {"XDG_DATA_HOME", "data"},
                                           {"XDG_STATE_HOME", "state"},
                                           {"XDG_RUNTIME_DIR", "run"}}) {
        std::filesystem::create_directory(home / folder);
        std::filesystem::permissions(home / folder, std::filesystem::perms::owner_all);
        setenv(variable, (home / folder).c_str(), 1);
    }
    setenv("XDG_CONFIG_DIRS", (home / "site").c_str(), 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    for (const char* variable :
         {"LANGUAGE", "CUPS_SERVER", "DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS"})
        unsetenv(variable);
    testing::UnitTest::GetInstance()->listeners().Append(new TidyUp);  // which owns it
}

std::map<std::string, std::string> Environment() {
    std::map<std::string, std::string> variables;
    for (char** entry = environ; *entry; ++entry) {
        const std::string text = *entry;
        variables[text.substr(0, text.find('='))] = text.substr(text.find('=') + 1);
    }
    return variables;
}

std::filesystem::path MakeFolder(const std::string& name) {
    std::string pattern = (home / (name + "-XXXXXX")).string();
    return mkdtemp(pattern.data());
}

std::string ReadFile(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void WriteFile(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

}  // namespace kalmo::test
