#include "printing/ppd_source.h"

#include <cups/file.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <system_error>

namespace {

struct CloseFile {
    void operator()(cups_file_t* file) const { cupsFileClose(file); }
};
using CupsFile = std::unique_ptr<cups_file_t, CloseFile>;

std::nullopt_t Refuse(std::string* reason, std::string why) {
    if (reason) *reason = std::move(why);
    return std::nullopt;
}

/// Unpacks gzipped files. Null with a reason.
CupsFile OpenOrdinaryFile(const std::string& path, std::string* reason) {
    // Without O_NONBLOCK a pipe would keep us until somebody writes into it.
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat status {};
    if (descriptor < 0 || fstat(descriptor, &status) != 0) {
        Refuse(reason, std::generic_category().message(errno));
    } else if (!S_ISREG(status.st_mode)) {
        Refuse(reason, "this is no ordinary file");
    } else if (CupsFile file{cupsFileOpenFd(descriptor, "r")}) {
        return file;
    } else {
        Refuse(reason, "it cannot be read");
    }
    if (descriptor >= 0) close(descriptor);
    return nullptr;
}

}  // namespace

std::optional<std::string> ReadPPDText(const std::string& path, std::string* reason) {
    const CupsFile file = OpenOrdinaryFile(path, reason);
    if (!file) return std::nullopt;
    std::string text;
    std::array<char, 65536> block;
    ssize_t count = 0;  // the end and a fault look alike; what is missing then, the parser misses
    while ((count = cupsFileRead(file.get(), block.data(), block.size())) > 0) {
        text.append(block.data(), static_cast<std::size_t>(count));
        if (text.size() > kPPDMaximumBytes) {
            return Refuse(reason, "this is no PPD file: it is larger than 8 MiB");
        }
    }
    // libcups asks the same; here it also keeps a packed file within a packed file out.
    if (!text.starts_with("*PPD-Adobe")) return Refuse(reason, "this is no PPD file");
    if (std::ranges::count(text, '\n') > static_cast<std::ptrdiff_t>(kPPDMaximumLines)) {
        return Refuse(reason, "this is no PPD file: it has more than 100000 lines");
    }
    return text;
}

std::string MarkTranslations(std::string_view text, const std::vector<std::string>& languages) {
    std::vector<std::string> names = languages;
    names.resize(std::min(names.size(), kPPDMaximumLanguages));
    for (std::string& name : names) std::ranges::replace(name, '-', '_');

    std::string marked;
    marked.reserve(text.size());
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end);
        const std::size_t dot = line.front() == '*' ? line.find('.') : std::string_view::npos;
        if (dot != std::string_view::npos) {
            const auto language = std::ranges::find(names, line.substr(1, dot - 1));
            if (language != names.end()) {
                marked += '*';
                marked += static_cast<char>('a' + (language - names.begin()));
                line.remove_prefix(dot);
            }
        }
        marked += line;
    }
    return marked;
}
