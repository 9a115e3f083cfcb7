#include "print_dialog/ppd_cache.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

std::filesystem::path CacheFolder() {
    const char* cache = std::getenv("XDG_CACHE_HOME");
    if (cache && cache[0] == '/') return std::filesystem::path(cache) / "kalmo-print";
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home ? home : "/nonexistent") / ".cache" / "kalmo-print";
}

/// Makes the folder, for nobody but the user.
bool MakePrivateFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder.parent_path(), error);
    mkdir(folder.c_str(), 0700);
    return chmod(folder.c_str(), 0700) == 0;
}

std::filesystem::path CachedPPD(const PPDSource& source) {
    std::string name =
        source.queue + "@" + source.server + ":" + std::to_string(source.port) + ".ppd";
    std::ranges::replace(name, '/', '_');
    return CacheFolder() / name;
}

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = write(file, bytes.data(), bytes.size());
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

FetchedPPD Write(const std::filesystem::path& copy, std::string_view bytes) {
    auto temporary = copy.string() + ".XXXXXX";
    const int file = MakePrivateFolder(copy.parent_path()) ? mkstemp(temporary.data()) : -1;
    if (file < 0) {
        return {.error = HostText("Folder unusable", {copy.parent_path().string()})};
    }
    const bool written = WriteAll(file, bytes);
    if (close(file) == 0 && written && rename(temporary.c_str(), copy.c_str()) == 0) {
        return {.path = copy.string()};
    }
    unlink(temporary.c_str());
    return {.error = HostText("No room for PPD")};
}

}  // namespace

FetchedPPD KeepPPD(const PPDSource& source, const DownloadedPPD& ppd, const std::string& silence) {
    switch (ppd.end) {
        case DownloadedPPD::End::whole:
            return Write(CachedPPD(source), ppd.bytes);
        case DownloadedPPD::End::refused:
            return {.note = HostText("Other server refuses", {source.server})};
        case DownloadedPPD::End::silent:
            return {.error = silence};
        case DownloadedPPD::End::none:
            break;
    }
    return {};
}

}  // namespace kalmo
