// The dialogs that make and change one recipient.
#pragma once

#include "fax/fax_recipients_model.h"

namespace kalmo {

/// Makes a recipient and adds it to the model, which may ask about a duplicate. True when one was
/// added.
bool RunModalAddRecipientDialog(FaxRecipientsModel* model);
/// True when the user confirmed; the record holds what was typed.
bool EditRecipient(CFBundleRef bundle, FaxRecipient* recipient);

}  // namespace kalmo
