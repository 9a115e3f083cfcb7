// Which address book the user has chosen.
#include <cstdlib>
#include <mutex>

#include "contacts/address_book.h"

namespace contacts {

namespace {

struct Choice {
    std::mutex mutex;
    Settings settings;
};

Choice& TheChoice() {
    static auto& choice = *new Choice;  // a worker may ask until the very end
    return choice;
}

}  // namespace

void SetSettings(const Settings& settings) {
    const std::lock_guard lock(TheChoice().mutex);
    TheChoice().settings = settings;
}

Settings CurrentSettings() {
    const std::lock_guard lock(TheChoice().mutex);
    return TheChoice().settings;
}

std::filesystem::path DefaultFolder() {
    const char* const configured = std::getenv("XDG_DATA_HOME");
    const char* const home = std::getenv("HOME");
    std::filesystem::path data;
    if (configured && *configured == '/') {
        data = configured;
    } else if (home && *home == '/') {
        data = std::filesystem::path(home) / ".local" / "share";
    } else {
        return {};
    }
    return data / "kalmo-print" / "contacts";
}

}  // namespace contacts
