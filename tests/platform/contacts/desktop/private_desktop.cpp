#include "platform/contacts/desktop/private_desktop.h"

#include <sys/wait.h>
#include <unistd.h>

#include <thread>

namespace kalmo::test {
namespace {

using namespace std::chrono_literals;

bool Becomes(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + 10s;
    while (!condition() && std::chrono::steady_clock::now() < end) std::this_thread::sleep_for(5ms);
    return condition();
}

std::string ServiceFolder(Services services, const std::filesystem::path& folder) {
    if (services == Services::installed) return "/usr/share/dbus-1/services";
    // It joins the bus, and ends with it, but never says that it is ready.
    if (services == Services::hanging)
        WriteFile(folder / "hanging.service",
                  "[D-BUS Service]\nName=org.gnome.evolution.dataserver.Sources5\n"
                  "Exec=/usr/bin/dbus-monitor --session type='error'\n");
    return folder;
}

std::string Configuration(const std::string& socket, const std::string& services) {
    return "<busconfig><type>session</type><listen>unix:path=" + socket + "</listen><servicedir>" +
           services +
           "</servicedir><policy context=\"default\"><allow send_destination=\"*\"/>"
           "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>";
}

}  // namespace

PrivateDesktop::PrivateDesktop(Services services) {
    const std::filesystem::path folder = MakeFolder("desktop");
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
        std::filesystem::create_directory(folder / variable);
        setenv(variable, (folder / variable).c_str(), 1);
    }
    socket_ = folder / "socket";
    setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + socket_).c_str(), 1);
    setenv("GSETTINGS_BACKEND", "keyfile", 1);
    WriteFile(folder / "bus.conf", Configuration(socket_, ServiceFolder(services, folder)));
    bus_ = std::make_unique<Program>(
        ProgramCall{.program = "/usr/bin/dbus-daemon",
                    .arguments = {"--nofork", "--nopidfile",
                                  "--config-file=" + (folder / "bus.conf").string()}});
    EXPECT_TRUE(Becomes([this] { return std::filesystem::exists(socket_); }));
}

PrivateDesktop::~PrivateDesktop() {
    bus_.reset();
    EXPECT_TRUE(Becomes([this] { return started().empty(); }));
    for (const pid_t pid : started()) kill(pid, SIGKILL);
}

/// Known by the address in the environment that they were started with.
std::vector<pid_t> PrivateDesktop::started() const {
    std::vector<pid_t> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const pid_t pid = std::atoi(entry.path().filename().c_str());
        if (pid > 0 && Contains(ReadFile(entry.path() / "environ"), socket_)) found.push_back(pid);
    }
    return found;
}

std::string PrivateDesktop::exported() {
    return RunProgram({.program = "/usr/libexec/evolution-data-server/addressbook-export"}).output;
}

void PrivateDesktop::killAddressBookService() const {
    for (const pid_t pid : started())
        if (Contains(ReadFile("/proc/" + std::to_string(pid) + "/cmdline"), "addressbook-factory"))
            kill(pid, SIGKILL);
}

void InOwnProcess(const std::function<void()>& scenario) {
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        scenario();
        std::exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}

std::chrono::milliseconds TimeOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                 start);
}

}  // namespace kalmo::test
