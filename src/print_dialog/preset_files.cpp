// Where presets lie, and under which names.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QStandardPaths>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include "contacts/collation.h"
#include "foundation/property_list.h"
#include "job_ticket/private_file.h"
#include "print_dialog/presets.h"
#include "print_dialog/private_folder.h"
#include "print_dialog/reasons.h"
#include "print_dialog/site_settings.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSuffix = ".plist";
/// Of a file's name, with room for the end of a temporary one.
constexpr std::size_t kLongestName = 255 - kSuffix.size() - 8;

fs::path OwnFolder(const char* name) {
    const auto config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return fs::path(config.toStdString()) / "kalmo-print" / name;
}

bool IsPlain(unsigned char byte) {
    return byte >= 0x20 && byte != 0x7F && byte != '/' && byte != '%';
}

/// Reversible, and the same text for most names.
std::string FileName(const std::string& name) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string file;
    for (const char character : name) {
        const auto byte = static_cast<unsigned char>(character);
        if (IsPlain(byte) && (byte != '.' || !file.empty())) {
            file += character;
        } else {
            file += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
        }
    }
    return file;
}

int HexValue(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    const char letter = static_cast<char>(digit | 0x20);
    return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

/// A file that somebody has put there with a percent sign of its own keeps it.
std::string NameOf(const std::string& file) {
    std::string name;
    for (std::size_t at = 0; at < file.size(); ++at) {
        const int high = file[at] == '%' && at + 2 < file.size() ? HexValue(file[at + 1]) : -1;
        const int low = high >= 0 ? HexValue(file[at + 2]) : -1;
        name += low >= 0 ? static_cast<char>(high * 16 + low) : file[at];
        if (low >= 0) at += 2;
    }
    return name;
}

fs::path FileIn(const fs::path& folder, const std::string& name) {
    return folder / (FileName(name) + std::string(kSuffix));
}

fs::path OwnPreset(const std::string& name) { return FileIn(OwnFolder("presets"), name); }

bool IsThere(const fs::path& file) {
    std::error_code ignored;
    return fs::is_regular_file(file, ignored);
}

void AddPresets(const fs::path& folder, bool readOnly, std::vector<Preset>& to) {
    std::error_code ignored;
    const std::size_t before = to.size();
    for (fs::directory_iterator entry(folder, ignored), end; entry != end;
         entry.increment(ignored)) {
        const std::string file = entry->path().filename().string();
        if (file.front() == '.' || !file.ends_with(kSuffix) || !IsThere(entry->path())) continue;
        const std::string name = NameOf(file.substr(0, file.size() - kSuffix.size()));
        if (std::ranges::find(to, name, &Preset::name) != to.end()) continue;
        to.push_back({name, entry->path(), readOnly});
    }
    std::ranges::sort(to.begin() + static_cast<std::ptrdiff_t>(before), to.end(), {},
                      &Preset::file);
}

/// A folder nobody else can enter. What goes wrong shows when the file is written.
Outcome WriteInOwnFolder(const fs::path& file, const std::string& bytes) {
    const fs::path folder = file.parent_path();
    std::error_code ignored;
    fs::create_directories(folder.parent_path(), ignored);
    mkdir(folder.c_str(), S_IRWXU);
    chmod(folder.c_str(), S_IRWXU);
    if (bytes.empty()) return {file.string() + ": " + HostText("Ticket not written")};
    const auto written = job_ticket::WritePrivateFile(file, bytes);
    return {written ? "" : file.string() + ": " + ReasonInWords(written.error)};
}

std::optional<Preset> IfThere(const fs::path& file) {
    if (!IsThere(file)) return {};
    return Preset{.name = {}, .file = file, .readOnly = true};
}

struct OpenFile {
    explicit OpenFile(const fs::path& file)
        // A pipe that nobody writes to must not hold us up.
        : number(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    ~OpenFile() {
        if (number >= 0) close(number);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    const int number;
};

}  // namespace

std::vector<Preset> ListPresets() {
    std::vector<Preset> presets;
    AddPresets(OwnFolder("presets"), false, presets);
    for (const auto& folder : SiteFolders()) AddPresets(folder / "presets", true, presets);
    std::ranges::stable_sort(presets, {},
                             [](const Preset& preset) { return contacts::SortKey(preset.name); });
    return presets;
}

Outcome FindPreset(const std::string& name, Preset* found) {
    std::string names;
    for (const Preset& preset : ListPresets()) {
        if (preset.name == name) {
            *found = preset;
            return {};
        }
        names += (names.empty() ? "" : ", ") + preset.name;
    }
    return {names.empty() ? HostText("No presets", {name})
                          : HostText("No such preset", {name, names})};
}

Outcome CheckPresetName(const std::string& name) {
    const bool blank = name.find_first_not_of(" \t\r\n") == std::string::npos;
    if (blank) return {HostText("Preset name missing")};
    return {FileName(name).size() <= kLongestName ? "" : HostText("Preset name too long")};
}

Outcome SavePreset(const std::string& name, const std::string& bytes) {
    const auto checked = CheckPresetName(name);
    return checked ? WriteInOwnFolder(OwnPreset(name), bytes) : checked;
}

Outcome RenamePreset(const Preset& preset, const std::string& to) {
    if (const auto checked = CheckPresetName(to); !checked || preset.name == to) return checked;
    errno = 0;
    if (MoveWithoutReplacing(preset.file, OwnPreset(to))) return {};
    return {errno == EEXIST ? HostText("Preset name taken", {to})
                            : SystemReason(preset.file, errno)};
}

Outcome DeletePreset(const Preset& preset) {
    const bool gone = unlink(preset.file.c_str()) == 0 || errno == ENOENT;
    return {gone ? "" : SystemReason(preset.file, errno)};
}

std::optional<Preset> LastSettings(const std::string& queue) {
    return IfThere(FileIn(OwnFolder("last"), queue));
}

Outcome RememberLastSettings(const std::string& queue, const std::string& bytes) {
    return WriteInOwnFolder(FileIn(OwnFolder("last"), queue), bytes);
}

std::optional<Preset> StartSettings() {
    for (const auto& folder : SiteFolders()) {
        if (auto found = IfThere(folder / "start.plist")) return found;
    }
    return {};
}

Outcome ReadPresetFile(const fs::path& file, std::string* bytes) {
    const OpenFile in(file);
    struct stat status {};
    if (in.number < 0 || fstat(in.number, &status) != 0) return {SystemReason(file, errno)};
    if (!S_ISREG(status.st_mode)) return {file.string() + ": " + HostText("Not a ticket file")};
    std::array<char, 65536> buffer;
    ssize_t count = 0;
    // One byte more than is allowed tells a file that is too large.
    while (bytes->size() <= kPropertyListMaximumBytes &&
           (count = read(in.number, buffer.data(), buffer.size())) > 0) {
        bytes->append(buffer.data(), static_cast<std::size_t>(count));
    }
    return {count < 0 ? SystemReason(file, errno) : ""};
}

}  // namespace kalmo
