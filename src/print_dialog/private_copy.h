// The document's bytes as they were when it was opened.
#pragma once

#include <filesystem>
#include <memory>

namespace kalmo {

/// A temporary file without a name: whatever happens to the original changes nothing, and nothing
/// is left behind, however the program ends. Reading it is safe on any thread.
class PrivateCopy final {
public:
    /// Null when `file` is no readable file, or there is no room for the copy. May take long: for
    /// a worker.
    [[nodiscard]] static std::shared_ptr<const PrivateCopy> Make(const std::filesystem::path& file);
    /// Of all that comes on standard input; null with the reason in errno.
    [[nodiscard]] static std::shared_ptr<const PrivateCopy> OfStandardInput();
    ~PrivateCopy();
    PrivateCopy(const PrivateCopy&) = delete;
    PrivateCopy& operator=(const PrivateCopy&) = delete;

    /// Opens the copy's bytes from their start, in this process only, as long as the copy lives.
    [[nodiscard]] std::filesystem::path path() const;

private:
    explicit PrivateCopy(int descriptor) : descriptor_(descriptor) {}
    [[nodiscard]] static std::shared_ptr<const PrivateCopy> Of(int source);
    int descriptor_;
};

}  // namespace kalmo
