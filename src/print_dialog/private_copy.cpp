#include "print_dialog/private_copy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <string>

namespace kalmo {
namespace {

/// Not the folder for small temporary files, which is often memory, unless the user has chosen it.
std::string CopiesFolder() {
    const char* chosen = std::getenv("TMPDIR");
    std::error_code missing;
    return chosen && std::filesystem::is_directory(chosen, missing) ? chosen : "/var/tmp";
}

int OpenUnnamedFile() {
    const std::string folder = CopiesFolder();
    const int unnamed = open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    if (unnamed >= 0) return unnamed;
    std::string name = folder + "/kalmo-print-XXXXXX";
    const int named = mkostemp(name.data(), O_CLOEXEC);
    if (named >= 0) unlink(name.c_str());
    return named;
}

/// A file only: a pipe that nobody writes to would keep the worker for ever.
int OpenOriginal(const std::filesystem::path& file) {
    const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat status {};
    if (descriptor >= 0 && fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
        return descriptor;
    }
    if (descriptor >= 0) close(descriptor);
    return -1;
}

bool WriteAll(int target, const char* bytes, ssize_t count) {
    while (count > 0) {
        const ssize_t written = write(target, bytes, static_cast<std::size_t>(count));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes += written;
        count -= written;
    }
    return true;
}

bool CopyBytes(int source, int target) {
    std::array<char, 1 << 16> buffer{};
    for (;;) {
        const ssize_t count = read(source, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return count == 0;
        if (!WriteAll(target, buffer.data(), count)) return false;
    }
}

}  // namespace

std::shared_ptr<const PrivateCopy> PrivateCopy::Make(const std::filesystem::path& file) {
    const int source = OpenOriginal(file);
    if (source < 0) return nullptr;
    auto copy = Of(source);
    close(source);
    return copy;
}

std::shared_ptr<const PrivateCopy> PrivateCopy::OfStandardInput() { return Of(STDIN_FILENO); }

std::shared_ptr<const PrivateCopy> PrivateCopy::Of(int source) {
    const int target = OpenUnnamedFile();
    if (target < 0) return nullptr;
    std::shared_ptr<const PrivateCopy> copy(new PrivateCopy(target));
    return CopyBytes(source, target) ? copy : nullptr;
}

PrivateCopy::~PrivateCopy() {
    const int number = errno;  // of what went wrong, if anything did
    close(descriptor_);
    errno = number;
}

std::filesystem::path PrivateCopy::path() const {
    return "/proc/self/fd/" + std::to_string(descriptor_);
}

}  // namespace kalmo
