// Whole files by URL: read with a limit, written under a temporary name; and the Preferences
// folder.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "foundation/property_list.h"
#include "foundation/url_private.h"

namespace {

using kalmo::foundation::FilePathOf;

class Descriptor final {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    [[nodiscard]] int get() const { return number_; }
    /// False with errno when what was written could not be kept.
    bool closeChecked() { return close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

bool WriteAll(int file, const UInt8* bytes, CFIndex length) {
    while (length > 0) {
        const ssize_t count = write(file, bytes, static_cast<std::size_t>(length));
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) {
            bytes += count;
            length -= count;
        }
    }
    return true;
}

void SyncFolderOf(const std::string& path) {
    const Descriptor folder(open(std::filesystem::path(path).parent_path().c_str(),
                                 O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.get() >= 0) fsync(folder.get());
}

enum class Durability { synced, unsynced };

/// errno, or 0. The file appears whole or not at all.
int Replace(const std::string& path, CFDataRef data, Durability durability) {
    const bool synced = durability == Durability::synced;
    std::string temporary = path + ".XXXXXX";
    Descriptor file(mkostemp(temporary.data(), O_CLOEXEC));  // mode 0600
    if (file.get() < 0) return errno;
    const bool written = WriteAll(file.get(), CFDataGetBytePtr(data), CFDataGetLength(data)) &&
                         (!synced || fsync(file.get()) == 0) && file.closeChecked() &&
                         rename(temporary.c_str(), path.c_str()) == 0;
    if (!written) {
        const int error = errno;
        unlink(temporary.c_str());
        return error;
    }
    if (synced) SyncFolderOf(path);
    return 0;
}

Boolean Answer(int error, SInt32* errorCode) {
    if (errorCode) *errorCode = error;
    return error == 0;
}

Boolean Write(CFURLRef url, CFDataRef data, SInt32* errorCode, Durability durability) {
    const auto path = FilePathOf(url);
    return Answer(path && data ? Replace(*path, data, durability) : EINVAL, errorCode);
}

/// Missing folders of the path, each 0700; an existing one keeps its mode.
bool MakeFolders(const std::filesystem::path& folder) {
    std::error_code error;
    if (std::filesystem::is_directory(folder, error)) return true;
    if (folder.has_parent_path() && folder != folder.parent_path() &&
        !MakeFolders(folder.parent_path())) {
        return false;
    }
    return mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST;
}

}  // namespace

int kalmo::foundation::ReadWholeFile(const std::string& path, std::size_t most,
                                     std::string& bytes) {
    // Not blocking: a named pipe must not hold the caller before it is seen to be none of our
    // files.
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.get() < 0) return errno;
    struct stat status {};
    if (fstat(file.get(), &status) != 0) return errno;
    if (S_ISDIR(status.st_mode)) return EISDIR;
    if (!S_ISREG(status.st_mode)) return EINVAL;
    if (static_cast<std::size_t>(status.st_size) > most) return EFBIG;
    char part[65536];
    ssize_t count = 0;
    while ((count = read(file.get(), part, sizeof part)) != 0) {
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno;
        bytes.append(part, static_cast<std::size_t>(count));
        if (bytes.size() > most) return EFBIG;
    }
    return 0;
}

Boolean CFURLCreateDataAndPropertiesFromResource(CFAllocatorRef allocator, CFURLRef url,
                                                 CFDataRef* data, SInt32* errorCode) {
    const auto path = FilePathOf(url);
    if (!path || !data) return Answer(EINVAL, errorCode);
    std::string bytes;
    const int error = kalmo::foundation::ReadWholeFile(*path, kPropertyListMaximumBytes, bytes);
    if (error == 0) {
        *data = CFDataCreate(allocator, reinterpret_cast<const UInt8*>(bytes.data()),
                             static_cast<CFIndex>(bytes.size()));
    }
    return Answer(error, errorCode);
}

Boolean CFURLWriteDataAndPropertiesToResource(CFURLRef url, CFDataRef data, SInt32* errorCode) {
    return Write(url, data, errorCode, Durability::synced);
}

Boolean CFURLWriteDataUnsynced(CFURLRef url, CFDataRef data, SInt32* errorCode) {
    return Write(url, data, errorCode, Durability::unsynced);
}

Boolean CFURLResourceExists(CFURLRef url) {
    const auto path = FilePathOf(url);
    return path && access(path->c_str(), F_OK) == 0;
}

Boolean CFURLMakeFolder(CFURLRef url) {
    const auto path = FilePathOf(url);
    if (!path || !MakeFolders(*path)) return false;
    std::error_code error;
    return std::filesystem::is_directory(*path, error);
}

CFURLRef CopyUserPreferencesFolder() {
    const char* const configured = std::getenv("XDG_CONFIG_HOME");
    const char* const home = std::getenv("HOME");
    std::filesystem::path folder;
    if (configured && configured[0] == '/') {
        folder = configured;
    } else if (home && home[0] == '/') {
        folder = std::filesystem::path(home) / ".config";
    } else {
        return nullptr;
    }
    auto url = kalmo::foundation::FileURLOf((folder / "kalmo-print").string(), true);
    return CFURLMakeFolder(url) ? url.detach() : nullptr;
}
