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

}  // namespace

CFStringRef CopyConsoleUser() {
    std::vector<char> texts(16384);
    passwd entry{};
    passwd* found = nullptr;
    while (getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found) == ERANGE &&
           texts.size() < 1u << 20) {
        texts.resize(texts.size() * 2);
    }
    return found ? CFStringCreateFromUTF8(found->pw_name) : nullptr;
}

CFStringRef CopyComputerName() {
    std::ifstream file("/etc/machine-info");
    const std::string pretty = PrettyHostName(std::string{std::istreambuf_iterator(file), {}});
    return CFStringCreateFromUTF8(pretty.empty() ? HostName() : pretty);
}

SInt32 GetSystemVersion() { return systemVersion; }

void SetSystemVersionForTests(SInt32 version) { systemVersion = version; }
