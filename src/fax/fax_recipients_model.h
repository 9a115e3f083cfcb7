// The recipients of a fax while the user works on them, in any of the dialogs.
#pragma once

#include "fax/fax_recipient_list.h"
#include "foundation/bundle.h"
#include "toolbox/list_view.h"

namespace kalmo {

struct FaxRecipientsModel {
    CFBundleRef bundle = nullptr;      // lent
    FaxRecipientList* list = nullptr;  // lent; the ticket's own
    ControlRef listView = nullptr;     // the setup's list, null before there is one
    SInt32 promptDuplicate = 1, promptRemove = 1;
    /// Whether the dialing strings are to be measured before the job is accepted.
    bool isLengthCheckArmed = true;
};

/// A list holds no more than these when it is filled from the address book.
inline constexpr CFIndex kMaxFaxRecipients = 1000;

/// Appends the recipient to the list and the setup's view, and arms the check. When it is there
/// already and the prompt is on, the user is asked: 0 when it was not added, else 1.
SInt32 AddRecipient(FaxRecipientsModel* model, FaxRecipient* recipient);
/// Removes them from the list and the setup's view, after a question when the prompt is on. Whether
/// anything was removed; what another view shows of them is gone then and its to fill anew.
bool RemoveRecipients(std::vector<FaxRecipient*> recipients, FaxRecipientsModel* model);
/// Those selected in `listView`.
bool RemoveSelectedRecipients(ControlRef listView, FaxRecipientsModel* model);

/// The columns name, fax number, organization, telephone, e-mail and mailbox, and their texts.
void SetUpRecipientView(CFBundleRef bundle, ControlRef listView);
/// Shows these, sorted as the user has chosen; they must outlive their being shown.
void ShowRecipients(ControlRef listView, std::vector<FaxRecipient*> recipients);
void ShowRecipients(ControlRef listView, const FaxRecipientList& list);
/// In the order of the selection; lent.
[[nodiscard]] std::vector<FaxRecipient*> SelectedRecipients(ControlRef listView);

}  // namespace kalmo
