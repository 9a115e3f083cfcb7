// Work that the user waits for: beside the UI thread, with a way out.
#pragma once

#include <functional>
#include <stop_token>

#include "foundation/string.h"

/// Lent. An ampersand precedes the button's mnemonic.
struct WaitTexts {
    CFStringRef message = nullptr, cancelButton = nullptr;
};

#pragma GCC visibility push(default)

/// UI thread. Runs `work` on a thread and returns true once it is done; meanwhile the user's input
/// reaches no window. After a moment a small window over the active one says what is waited for;
/// its button, Escape and the close box ask the work to stop and answer false: what the work still
/// does is then its own affair, so it must own all it uses. Nothing may be thrown by it. Where the
/// Presence runs no modal loops the work is done on the spot.
[[nodiscard]] bool RunAndWait(const WaitTexts& texts, std::function<void(std::stop_token)> work);

#pragma GCC visibility pop
