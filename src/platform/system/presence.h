// Who is there to talk to: the host installs one record that carries every word to the user.
//
// With windows it shows alerts and help pages; unattended it writes one line to standard error and
// answers Cancel, so nothing ever waits; tests record.
#pragma once

#include <functional>

#include "foundation/string.h"

struct AlertTexts {
    CFStringRef header = nullptr, message = nullptr;
    CFStringRef defaultButton = nullptr, alternateButton = nullptr;
    /// The alternate button does what cannot be undone: Escape, the close box and an unattended run
    /// answer the default one then, and the alternate one otherwise.
    bool alternateDestroys = false;
};

struct Presence {
    /// Shown until the user has seen it.
    std::function<void(CFStringRef header, CFStringRef message)> notice;
    /// True when the default button was chosen.
    std::function<bool(const AlertTexts&)> alert;
    std::function<void()> beep;
    /// Shows a page (path of a file, and an anchor or null) of a registered help book.
    std::function<OSStatus(CFStringRef path, CFStringRef anchor)> helpPage;
    /// False: RunAppModalLoopForWindow answers Cancel at once.
    bool modalLoopsRun = false;
};

#pragma GCC visibility push(default)

/// Unattended until a host installs another one.
[[nodiscard]] const Presence& CurrentPresence();
void InstallPresence(Presence presence);
[[nodiscard]] Presence UnattendedPresence();

#pragma GCC visibility pop
