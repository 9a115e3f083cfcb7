#include "contacts/card_folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <memory>
#include <thread>

#include "contacts/card_mapping.h"
#include "contacts/vcard_text.h"
#include "foundation/url.h"
#include "foundation/url_private.h"

namespace contacts {

namespace {

constexpr std::string_view kCardSuffix = ".vcf";
constexpr std::string_view kTemporaryPrefix = ".kalmo-";
constexpr std::string_view kTemporarySuffix = ".tmp";
constexpr std::time_t kLeftoverSeconds = 3600;
constexpr std::chrono::seconds kLongestWait{10};

struct FolderCloser {
    void operator()(DIR* folder) const { closedir(folder); }
};

std::string RevisionOf(const struct stat& status) {
    return std::to_string(status.st_mtim.tv_sec) + '.' + std::to_string(status.st_mtim.tv_nsec) +
           '-' + std::to_string(status.st_size) + '-' + std::to_string(status.st_ino);
}

bool MayBeCard(std::string_view name) {
    return !name.starts_with('.') && name.size() > kCardSuffix.size() &&
           EqualWithoutCase(name.substr(name.size() - kCardSuffix.size()), kCardSuffix);
}

bool IsTemporary(std::string_view name) {
    return name.starts_with(kTemporaryPrefix) && name.ends_with(kTemporarySuffix);
}

/// Calls `take` with the name and the type of each entry.
template <typename Take>
int ForEachEntry(int folder, const Take& take) {
    // A descriptor of its own: the place in the folder belongs to the open file.
    Descriptor again(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!again) return errno;
    const std::unique_ptr<DIR, FolderCloser> entries(fdopendir(again.get()));
    if (!entries) return errno;
    again.release();  // the list of entries closes it
    errno = 0;
    while (const dirent* entry = readdir(entries.get())) take(entry->d_name, entry->d_type);
    return errno;
}

int ReadAll(int file, std::size_t most, std::string& bytes) {
    // One byte more than it has, so that its end shows at once.
    std::size_t filled = 0;
    for (;;) {
        if (filled == bytes.size()) bytes.resize(filled + 4096);
        const ssize_t count = ::read(file, bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno;
        filled += static_cast<std::size_t>(count);
        if (count == 0) break;
        if (filled > most) return EFBIG;
    }
    bytes.resize(filled);
    return 0;
}

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// A file under a name of its own; goes unless it has got another.
class TemporaryFile final {
public:
    explicit TemporaryFile(int folder)
        : folder_(folder), name_(std::string(kTemporaryPrefix) + NewUid()) {
        name_ += kTemporarySuffix;
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!name_.empty()) unlinkat(folder_, name_.c_str(), 0);
    }

    int write(std::string_view bytes, mode_t mode, std::string& revision) const {
        const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        const Descriptor file(openat(folder_, name_.c_str(), flags, 0600));
        struct stat status {};
        if (!file || !WriteAll(file.get(), bytes) || fchmod(file.get(), mode) != 0 ||
            fsync(file.get()) != 0 || fstat(file.get(), &status) != 0) {
            return errno;
        }
        revision = RevisionOf(status);
        return 0;
    }
    int takePlaceOf(const std::string& name) {
        if (renameat(folder_, name_.c_str(), folder_, name.c_str()) != 0) return errno;
        name_.clear();
        return syncFolder();
    }
    int become(const std::string& name) {
        if (linkat(folder_, name_.c_str(), folder_, name.c_str(), 0) == 0) return syncFolder();
        // Not every file system has a second name for a file.
        const bool noLinks = errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS;
        if (!noLinks) return errno;
        if (renameat2(folder_, name_.c_str(), folder_, name.c_str(), RENAME_NOREPLACE) != 0) {
            return errno;
        }
        name_.clear();
        return syncFolder();
    }

private:
    /// The file is in its place already: that the folder cannot be synced is no failure.
    [[nodiscard]] int syncFolder() const {
        fsync(folder_);
        return 0;
    }
    int folder_;
    std::string name_;
};

}  // namespace

Descriptor::~Descriptor() {
    if (number_ >= 0) close(number_);
}

int CardFolder::open(const std::filesystem::path& folder, Missing missing) {
    if (folder.empty()) return ENOENT;
    constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    folder_ = Descriptor(::open(folder.c_str(), kFlags));
    if (folder_) return 0;
    if (errno != ENOENT || missing == Missing::fails) return errno;
    if (!CFURLMakeFolder(kalmo::foundation::FileURLOf(folder.string(), true))) return errno;
    folder_ = Descriptor(::open(folder.c_str(), kFlags));
    return folder_ ? 0 : errno;
}

int CardFolder::list(std::vector<std::string>& names) const {
    const int error = ForEachEntry(folder_.get(), [&](const char* name, unsigned char type) {
        if (MayBeCard(name) && type != DT_DIR) names.emplace_back(name);
    });
    std::ranges::sort(names);
    return error;
}

void CardFolder::removeLeftovers() const {
    std::vector<std::string> leftovers;
    const std::time_t latest = std::time(nullptr) - kLeftoverSeconds;
    ForEachEntry(folder_.get(), [&](const char* name, unsigned char) {
        struct stat status {};
        if (IsTemporary(name) && fstatat(folder_.get(), name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
            S_ISREG(status.st_mode) && status.st_mtim.tv_sec < latest) {
            leftovers.emplace_back(name);
        }
    });
    for (const std::string& name : leftovers) unlinkat(folder_.get(), name.c_str(), 0);
}

int CardFolder::read(const std::string& name, std::size_t most, StoredFile& file) const {
    const int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const Descriptor opened(openat(folder_.get(), name.c_str(), flags));
    struct stat status {};
    if (!opened || fstat(opened.get(), &status) != 0) return errno;
    if (!S_ISREG(status.st_mode)) return EINVAL;
    if (static_cast<std::size_t>(status.st_size) > most) return EFBIG;
    file.revision = RevisionOf(status);
    file.mode = status.st_mode & 0777;
    file.bytes.resize(static_cast<std::size_t>(status.st_size) + 1);
    return ReadAll(opened.get(), most, file.bytes);
}

int CardFolder::lock(const std::stop_token& stop) const {
    const auto end = std::chrono::steady_clock::now() + kLongestWait;
    while (flock(folder_.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) return 0;
        if (stop.stop_requested()) return ECANCELED;
        if (std::chrono::steady_clock::now() > end) return ETIMEDOUT;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return 0;
}

int CardFolder::replace(const std::string& name, std::string_view bytes, StoredFile& file) const {
    TemporaryFile temporary(folder_.get());
    std::string revision;
    int error = temporary.write(bytes, file.mode, revision);
    if (error != 0) return error;
    // As late as can be: programs that know no lock may write, too.
    struct stat status {};
    const bool there = fstatat(folder_.get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
    if ((there ? RevisionOf(status) : "") != file.revision) return ESTALE;
    error = temporary.takePlaceOf(name);
    if (error == 0) file = {std::string(bytes), revision, file.mode};
    return error;
}

int CardFolder::create(const std::string& name, std::string_view bytes, StoredFile& file) const {
    TemporaryFile temporary(folder_.get());
    std::string revision;
    int error = temporary.write(bytes, 0600, revision);
    if (error == 0) error = temporary.become(name);
    if (error == 0) file = {std::string(bytes), revision, 0600};
    return error;
}

int CardFolder::remove(const std::string& name) const {
    if (unlinkat(folder_.get(), name.c_str(), 0) != 0 && errno != ENOENT) return errno;
    fsync(folder_.get());
    return 0;
}

}  // namespace contacts
