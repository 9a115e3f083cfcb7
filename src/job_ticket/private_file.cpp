#include "job_ticket/private_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace kalmo::job_ticket {
namespace {

std::string CannotBeWritten(int error) {
    return std::string("The output cannot be written: ") + std::strerror(error) + ".";
}

// A device such as /dev/stdout must not be replaced by an ordinary file.
bool IsReplaceable(const std::filesystem::path& target) {
    std::error_code ignored;
    const auto status = std::filesystem::status(target, ignored);
    return !std::filesystem::exists(status) || std::filesystem::is_regular_file(status);
}

// Without this the new name may be lost with the machine's power although the bytes are there.
void SyncFolder(const std::filesystem::path& folder) {
    const int fd = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    fsync(fd);
    close(fd);
}

}  // namespace

PrivateFile::PrivateFile(std::filesystem::path target) : target_(std::move(target)) {
    if (!IsReplaceable(target_)) {
        error_ = "The output cannot be written: it is no ordinary file.";
        return;
    }
    std::string pattern = target_.string() + ".XXXXXX";
    const int fd = mkostemp(pattern.data(), O_CLOEXEC);
    if (fd < 0) {
        error_ = CannotBeWritten(errno);
        return;
    }
    temporary_ = pattern;
    stream_.reset(fdopen(fd, "wb"));
    if (!stream_) {
        error_ = CannotBeWritten(errno);
        close(fd);
    }
}

PrivateFile::~PrivateFile() {
    if (!temporary_.empty()) unlink(temporary_.c_str());
}

std::string PrivateFile::error() const {
    return error_.empty() && stream_ && std::ferror(stream_.get()) ? CannotBeWritten(errno)
                                                                   : error_;
}

Result PrivateFile::sync() {
    if (std::string reason = error(); !reason.empty()) return {std::move(reason)};
    if (std::fflush(stream_.get()) != 0 || fsync(fileno(stream_.get())) != 0) {
        return {CannotBeWritten(errno)};
    }
    return {};
}

Result PrivateFile::commit() {
    if (Result synced = sync(); !synced) return synced;
    if (std::rename(temporary_.c_str(), target_.c_str()) != 0) return {CannotBeWritten(errno)};
    temporary_.clear();
    stream_.reset();
    SyncFolder(target_.parent_path());
    return {};
}

Result WritePrivateFile(const std::filesystem::path& target, std::string_view bytes) {
    PrivateFile file(target);
    if (file.stream()) std::fwrite(bytes.data(), 1, bytes.size(), file.stream());
    return file.commit();
}

}  // namespace kalmo::job_ticket
