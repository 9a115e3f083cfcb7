// The ticket file: one XML property list with PrintSettings, PPDChoices and PageFormat.
#pragma once

#include <string>
#include <string_view>

#include "foundation/collections.h"
#include "printing/session.h"

#pragma GCC visibility push(default)

/// Puts the three dictionaries of the file's bytes into the session's tickets, replacing what they
/// hold. Keys of the top level that are not known are kept for WriteTicketFile. False with a
/// one-line reason (no file name in it) when the bytes are no ticket file; the session is then
/// unchanged.
Boolean ReadTicketFile(PMPrintSession session, std::string_view bytes, std::string* reason);
/// The session's tickets as a ticket file, with the unknown keys it was read with. `extraSettings`
/// (may be null) is added to PrintSettings in the file only. Empty on failure.
[[nodiscard]] std::string WriteTicketFile(PMPrintSession session, CFDictionaryRef extraSettings);

#pragma GCC visibility pop
