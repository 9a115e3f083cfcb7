// Settings of one printer that another does not have, in words for people.
#pragma once

#include <string>
#include <vector>

#include "foundation/collections.h"
#include "print_dialog/print_job_host.h"

namespace kalmo {

struct NamedChoice {
    PPDSelection choice;
    std::string words;  // "OPTION: CHOICE"
};
/// What is chosen of the printer's options beside its defaults.
[[nodiscard]] std::vector<NamedChoice> ChosenInWords(const PrintJobHost& host);

/// For a ticket file that another printer may read: the words of the choices in the session's
/// tickets.
[[nodiscard]] Owned<CFMutableDictionaryRef> WordsForOtherPrinters(PMPrintSession session,
                                                                  const PPDDescription& printer);
/// Removes from the session's tickets what the printer does not have, and those words. Returns what
/// the user would miss, "OPTION: CHOICE". Of a printer that is not known (null) nothing is missed.
std::vector<std::string> DropForeignSettings(PMPrintSession session, const PPDDescription* printer);

}  // namespace kalmo
