// A folder for a filter's files that goes with the filter, also when the job is cancelled.
#pragma once

#include <filesystem>

namespace kalmo {

/// A fresh folder of mode 0700 under TMPDIR. SIGTERM, SIGINT and SIGHUP remove it and end the
/// program with 1. At most one per process, made before any other thread.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// Empty when it could not be made.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace kalmo
