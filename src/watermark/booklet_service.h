// What this panel asks of the owner of the booklet settings, who is another panel.
#pragma once

#include <functional>
#include <string>

namespace kalmo {

/// What is chosen now: in words (a key of the string table), and as a picture file of the bundle.
struct BookletState {
    std::string picture;
    const char* descriptionKey = nullptr;
};
struct BookletService {
    /// Runs the booklet dialog and brings what it changed into the ticket at once.
    std::function<void()> run;
    std::function<BookletState()> state;
};

/// Replaces the service; an empty one takes it away. The owner does so before its record goes.
void InstallBookletService(BookletService service);
/// Empty functions while none is installed.
[[nodiscard]] const BookletService& InstalledBookletService();

}  // namespace kalmo
