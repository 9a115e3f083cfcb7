#include "system/system.h"

#include <pwd.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <vector>

#include "system/machine_files.h"

namespace {

SInt32 systemVersion = kSystemVersion10_5;

std::string HostName() {
    char name[256] = {};  // POSIX names end at 255 bytes; a longer one is cut
    return gethostname(name, sizeof name - 1) == 0 ? name : "";
}

/// Empty without a passwd entry.
std::string LoginName() {
    std::vector<char> texts(16384);
    passwd entry{};
    passwd* found = nullptr;
    while (getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found) == ERANGE &&
           texts.size() < 1u << 20) {
        texts.resize(texts.size() * 2);
    }
    return found ? found->pw_name : "";
}

}  // namespace

CFStringRef CopyConsoleUser() {
    // Asked once: where users are kept on a server, the answer takes its time.
    static const std::string& name = *new std::string(LoginName());
    return name.empty() ? nullptr : CFStringCreateFromUTF8(name);
}

CFStringRef CopyComputerName() {
    std::ifstream file("/etc/machine-info");
    const std::string pretty = PrettyHostName(std::string{std::istreambuf_iterator(file), {}});
    return CFStringCreateFromUTF8(pretty.empty() ? HostName() : pretty);
}

SInt32 GetSystemVersion() { return systemVersion; }

void SetSystemVersionForTests(SInt32 version) { systemVersion = version; }
