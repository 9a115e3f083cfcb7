// Which address book the settings mean.
#include "contacts/desktop_module.h"

namespace contacts {
namespace {

/// How long the user is kept from the folder by a desktop that does not answer.
constexpr std::chrono::seconds kAutomaticLimit(3);

Opened FolderBook(const Settings& settings, Answer answer = {}) {
    const auto folder = settings.folder.empty() ? DefaultFolder() : settings.folder;
    return {OpenFolder(folder), Source::folder, std::move(answer), folder};
}

Opened Desktop(const std::stop_token& stop) {
    Opened opened{.source = Source::desktop};
    opened.book = OpenDesktop(stop, opened.answer);
    return opened;
}

Opened DesktopElseFolder(const Settings& settings, const std::stop_token& stop) {
    Opened opened{.source = Source::desktop};
    opened.book = OpenDesktopWithin(kAutomaticLimit, stop, opened.answer);
    const bool isDecided = opened.book || opened.answer.code == Code::cancelled;
    return isDecided ? opened : FolderBook(settings, std::move(opened.answer));
}

}  // namespace

Opened OpenAddressBook(const Settings& settings, const std::stop_token& stop) {
    switch (settings.source) {
        case Source::folder:
            return FolderBook(settings);
        case Source::desktop:
            return Desktop(stop);
        case Source::automatic:
            break;
    }
    return DesktopElseFolder(settings, stop);
}

}  // namespace contacts
