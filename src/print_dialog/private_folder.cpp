#include "print_dialog/private_folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <set>

namespace kalmo {
namespace {

struct LivingFolders {
    std::mutex mutex;
    std::set<std::filesystem::path> paths;
};

/// Never destroyed: a worker may outlive main.
LivingFolders& Living() {
    static auto& living = *new LivingFolders;
    return living;
}

/// A worker may be writing into it meanwhile.
void RemoveAll(const std::filesystem::path& folder) {
    constexpr int kTries = 10;
    std::error_code error;
    for (int i = 0; i == 0 || (error && i < kTries); ++i) {
        std::filesystem::remove_all(folder, error);
    }
}

}  // namespace

PrivateFolder::PrivateFolder(const std::filesystem::path& parent) {
    auto name = (parent / ".kalmo-print-XXXXXX").string();
    if (!mkdtemp(name.data())) return;
    path_ = name;
    const std::lock_guard lock(Living().mutex);
    Living().paths.insert(path_);
}

PrivateFolder::~PrivateFolder() {
    if (path_.empty()) return;
    remove();
    const std::lock_guard lock(Living().mutex);
    Living().paths.erase(path_);
}

void PrivateFolder::remove() const {
    if (!path_.empty()) RemoveAll(path_);
}

void RemovePrivateFolders() {
    const std::lock_guard lock(Living().mutex);
    for (const auto& folder : Living().paths) RemoveAll(folder);
}

std::filesystem::path TemporaryFolder() {
    std::error_code missing;
    const auto folder = std::filesystem::temp_directory_path(missing);
    return missing ? "/tmp" : folder;
}

std::string SystemReason(const std::filesystem::path& file, int number) {
    return file.string() + ": " + std::strerror(number);
}

bool MoveWithoutReplacing(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // A network file system cannot do so in one step; a second name for the file can.
    if (link(from.c_str(), to.c_str()) != 0) return false;
    unlink(from.c_str());
    return true;
}

}  // namespace kalmo
