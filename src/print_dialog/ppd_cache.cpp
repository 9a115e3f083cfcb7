#include "print_dialog/ppd_cache.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

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

}  // namespace

FetchedPPD KeepPPD(const PPDSource& source, const std::function<FetchEnd(int file)>& fetch,
                   const std::string& failure) {
    const auto copy = CachedPPD(source);
    auto fetched = copy.string() + ".XXXXXX";
    const int file = MakePrivateFolder(copy.parent_path()) ? mkstemp(fetched.data()) : -1;
    if (file < 0) {
        return {{}, HostText("Folder unusable", {copy.parent_path().string()})};
    }
    const auto end = fetch(file);
    const bool written = close(file) == 0;
    if (end == FetchEnd::whole && written && rename(fetched.c_str(), copy.c_str()) == 0) {
        return {copy.string(), {}};
    }
    unlink(fetched.c_str());
    if (end == FetchEnd::none) return {};
    return {{}, end == FetchEnd::whole ? HostText("No room for PPD") : failure};
}

}  // namespace kalmo
