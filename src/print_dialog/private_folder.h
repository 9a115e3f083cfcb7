// A temporary folder that only the user can enter, and the way out of it for a finished file.
#pragma once

#include <filesystem>
#include <string>

namespace kalmo {

/// Goes with all it holds.
class PrivateFolder final {
public:
    /// In `parent`; path() is empty when it cannot be made.
    explicit PrivateFolder(const std::filesystem::path& parent);
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// Goes before its time; a file that is open stays readable.
    void remove() const;

private:
    std::filesystem::path path_;
};

/// For a program that ends in the middle of a worker's work: all there are go with what they hold.
void RemovePrivateFolders();

/// The one that TMPDIR names; the system's own where it names none.
[[nodiscard]] std::filesystem::path TemporaryFolder();

/// Gives the file its place unless something is there already; false then, and on failure with the
/// reason in errno.
[[nodiscard]] bool MoveWithoutReplacing(const std::filesystem::path& from,
                                        const std::filesystem::path& to);
/// "FILE: the system's words for errno".
[[nodiscard]] std::string SystemReason(const std::filesystem::path& file, int number);

}  // namespace kalmo
