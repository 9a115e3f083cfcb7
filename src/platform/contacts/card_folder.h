// The files of one folder that other programs use too: read whole with the version that was read,
// written whole or not at all.
//
// Only plain files in the folder itself are met: no link is followed, nothing waits for a pipe.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <filesystem>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace contacts {

/// Closes what it holds.
class Descriptor final {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor();
    [[nodiscard]] int get() const { return number_; }
    int release() { return std::exchange(number_, -1); }
    [[nodiscard]] explicit operator bool() const { return number_ >= 0; }

private:
    int number_;
};

struct StoredFile {
    std::string bytes;
    std::string revision;  // changes with every write: time, size and inode
    mode_t mode = 0600;
};

/// Functions answer 0 or an errno number.
class CardFolder final {
public:
    enum class Missing { fails, isMade };
    /// A folder that is made gets the mode 0700, as do those above it.
    int open(const std::filesystem::path& folder, Missing missing);
    /// Names of the files that may be cards, sorted.
    int list(std::vector<std::string>& names) const;
    /// Temporary files of ours that a program left an hour ago or longer when it was ended.
    void removeLeftovers() const;

    /// ELOOP for a link, EINVAL for what is no plain file, EFBIG beyond `most` bytes.
    int read(const std::string& name, std::size_t most, StoredFile& file) const;
    /// Until this object goes; waits for other processes of ours. ECANCELED, or ETIMEDOUT after ten
    /// seconds. A file system without locks is used without.
    int lock(const std::stop_token& stop) const;
    /// Takes the place of the version that `file` tells, and keeps its mode; `file` becomes what
    /// is stored. ESTALE when another version is there.
    int replace(const std::string& name, std::string_view bytes, StoredFile& file) const;
    /// With the mode 0600. EEXIST when the name is taken.
    int create(const std::string& name, std::string_view bytes, StoredFile& file) const;
    /// What isn't there is removed.
    int remove(const std::string& name) const;

private:
    Descriptor folder_;
};

}  // namespace contacts
