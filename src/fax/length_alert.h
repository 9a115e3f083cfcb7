// Which recipients cannot be dialed because their dialing string is too long, and the alert that
// lets the user mend it.
#pragma once

#include <vector>

#include "fax/fax_recipients_model.h"

namespace kalmo {

/// A part of the dialing string that all recipients share: as the setup has it, and as the alert
/// leaves it.
struct DialingPart {
    bool isOn = false;
    CFIndex length = 0;  // what the test reckons with; the alert does not change it
    /// Emptied when the alert leaves the box off; made when it leaves it on and there was none.
    Owned<CFMutableStringRef> text;
};

/// In the list's order; lent.
[[nodiscard]] std::vector<FaxRecipient*> FindMaxCharacters(const FaxRecipientList& list,
                                                           CFIndex prefixLength,
                                                           CFIndex creditCardLength);
/// Runs the alert when there are any. True when there was none at the last test.
bool ValidateMaxCharacters(FaxRecipientsModel* model, DialingPart* prefix, DialingPart* creditCard);

}  // namespace kalmo
