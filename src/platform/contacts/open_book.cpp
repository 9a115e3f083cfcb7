// Which address book the settings mean.
#include <mutex>
#include <optional>

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

/// What "automatic" has come to. It stays so while the program runs: a desktop that is slow once
/// must not scatter persons and their groups over two address books.
class AutomaticChoice final {
public:
    [[nodiscard]] std::optional<Source> source(Answer& whyNotDesktop) const {
        const std::lock_guard locked(lock_);
        whyNotDesktop = whyNotDesktop_;
        return source_;
    }
    void decide(Source source, const Answer& whyNotDesktop) {
        const std::lock_guard locked(lock_);
        if (!source_) whyNotDesktop_ = whyNotDesktop;
        if (!source_) source_ = source;
    }

private:
    mutable std::mutex lock_;
    std::optional<Source> source_;
    Answer whyNotDesktop_;
};

AutomaticChoice& Automatic() {
    static auto& choice = *new AutomaticChoice;  // a thread may outlive what is static
    return choice;
}

Opened DesktopElseFolder(const Settings& settings, const std::stop_token& stop) {
    Answer whyNotDesktop;
    const auto decided = Automatic().source(whyNotDesktop);
    if (decided == Source::folder) return FolderBook(settings, whyNotDesktop);
    if (decided == Source::desktop) return Desktop(stop);
    Opened opened{.source = Source::desktop};
    opened.book = OpenDesktopWithin(kAutomaticLimit, stop, opened.answer);
    if (!opened.book && opened.answer.code == Code::cancelled) return opened;
    Automatic().decide(opened.book ? Source::desktop : Source::folder, opened.answer);
    return opened.book ? opened : FolderBook(settings, std::move(opened.answer));
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
