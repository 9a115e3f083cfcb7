// Negative and mirrored printing: the record, its ticket dictionary, and the helper that a panel
// with the two check boxes calls.
#pragma once

#include "foundation/collections.h"
#include "printing/ticket.h"
#include "toolbox/controls.h"

namespace kalmo {

struct II_Options {
    bool valid = false;  // initialised or read
    bool NegativeImage = false;
    bool MirrorImage = false;
};

/// The helper's own controls; null where the panel shows the flags itself.
struct InvertImageContext {
    ControlRef group = nullptr;
    ControlRef negative = nullptr;
    ControlRef mirror = nullptr;
};

/// Both flags off, no controls.
void InvertImageInitialize(InvertImageContext* context, II_Options* options);
/// Finds group 910 and check boxes 911 and 912 in `window` and embeds them in `pane`. The first
/// failed look-up's status; what was found is embedded.
OSStatus InvertImageOpen(InvertImageContext* context, WindowRef window, ControlRef pane);
/// Disposes of the helper's controls.
void InvertImageTerminate(InvertImageContext* context);

/// "NegativeImage" and "MirrorImage", numbers 1 or 0. The caller releases it.
[[nodiscard]] CFDictionaryRef InvertImageCreateTicketFromOptions(const II_Options& options);
/// A flag is true when its number is not zero; missing, or a null dictionary, is false.
void InvertImageSetOptionsFromTicket(CFDictionaryRef dictionary, II_Options* options);

/// Direction 0 sets the flag of each check box that exists, whatever the box shows, never clears
/// one, and writes the dictionary. Direction 1 reads it (a missing one: both off) and shows the
/// flags. The ticket's status, 0 for a missing dictionary.
OSStatus InvertImageSync(const InvertImageContext& context, II_Options* options, Boolean direction,
                         PMTicketRef ticket);

}  // namespace kalmo
