#include "print_dialog/private_folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace kalmo {

PrivateFolder::PrivateFolder(const std::filesystem::path& parent) {
    auto name = (parent / ".kalmo-print-XXXXXX").string();
    if (mkdtemp(name.data())) path_ = name;
}

PrivateFolder::~PrivateFolder() {
    std::error_code ignored;
    if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
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
    return link(from.c_str(), to.c_str()) == 0;
}

}  // namespace kalmo
