// Files that may hold secrets: readable by their owner alone, and whole or not there at all.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string_view>

#include "job_ticket/result.h"

namespace kalmo::job_ticket {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileStream = std::unique_ptr<std::FILE, CloseFile>;

/// A file being written, mode 0600, under a temporary name beside `target`. It takes target's name
/// with commit() and vanishes without it.
class PrivateFile {
public:
    /// Refused, with the reason in error(): no such folder, no right to write, a target that is
    /// there and no ordinary file.
    explicit PrivateFile(std::filesystem::path target);
    ~PrivateFile();
    PrivateFile(const PrivateFile&) = delete;
    PrivateFile& operator=(const PrivateFile&) = delete;

    /// Borrowed; null when refused.
    [[nodiscard]] std::FILE* stream() const { return stream_.get(); }
    /// Why the file cannot be written so far; empty when all is well.
    [[nodiscard]] std::string error() const;
    /// Flushes, syncs, renames. To be called once.
    Result commit();

private:
    Result sync();

    std::filesystem::path target_;
    std::filesystem::path temporary_;
    FileStream stream_;
    std::string error_;
};

/// Writes the bytes as one private file.
Result WritePrivateFile(const std::filesystem::path& target, std::string_view bytes);

}  // namespace kalmo::job_ticket
