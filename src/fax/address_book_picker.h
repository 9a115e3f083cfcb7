// The dialogs between the recipients of a fax and the address book.
#pragma once

#include "fax/fax_recipients_model.h"

namespace kalmo {

/// 1 when recipients were added.
SInt32 RunModalFaxABPicker(FaxRecipientsModel* model);
/// kModalOK when the recipients stand in the address book as a group.
SInt32 RunModalSaveGroupDialog(CFBundleRef bundle, FaxRecipientList* list);

}  // namespace kalmo
