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

/// libcups' time grows with the square of these; far more than any printer needs still takes it no
/// longer than a few seconds.
struct LineLimit {
    std::string_view start;
    std::size_t most;
    const char* what;
};
constexpr LineLimit kLineLimits[] = {
    {"*", 60000, "lines"},
    {"*PageSize ", 2000, "paper sizes"},
    {"*PaperDimension ", 2000, "paper sizes"},
    {"*ImageableArea ", 2000, "paper sizes"},
    {"*OpenGroup", 2000, "groups"},
    {"*OpenSubGroup", 2000, "groups"},
};

/// The line with its end, taken off the front of `text`, which is not empty.
std::string_view TakeLine(std::string_view* text) {
    const std::size_t end = text->find_first_of("\r\n");
    const std::string_view line = text->substr(0, end == std::string_view::npos ? end : end + 1);
    text->remove_prefix(line.size());
    return line;
}

/// The limit that the text exceeds, or null.
const LineLimit* ExceededLimit(std::string_view text) {
    std::array<std::size_t, std::size(kLineLimits)> counts{};
    while (!text.empty()) {
        const std::string_view line = TakeLine(&text);
        for (std::size_t i = 0; i < counts.size(); ++i) {
            if (line.starts_with(kLineLimits[i].start) && ++counts[i] > kLineLimits[i].most) {
                return &kLineLimits[i];
            }
        }
    }
    return nullptr;
}

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
    if (const LineLimit* limit = ExceededLimit(text)) {
        return Refuse(reason, std::string("this PPD file has more than ") +
                                  std::to_string(limit->most) + ' ' + limit->what);
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
        std::string_view line = TakeLine(&text);
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
