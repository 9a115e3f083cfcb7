// The recipients of a fax, in order.
#pragma once

#include "fax/fax_recipient.h"
#include "foundation/collections.h"

namespace kalmo {

/// Holds one reference to each recipient.
class FaxRecipientList final {
public:
    FaxRecipientList();
    /// From the ticket's array of dictionaries; elements of another kind are passed over.
    explicit FaxRecipientList(CFArrayRef ticket);
    /// Each recipient is copied into a new record.
    FaxRecipientList(const FaxRecipientList& other);
    FaxRecipientList& operator=(const FaxRecipientList&) = delete;

    [[nodiscard]] CFIndex count() const;
    /// Borrowed; null outside the list.
    [[nodiscard]] FaxRecipient* recipientAtIndex(CFIndex index) const;
    void removeAtIndex(CFIndex index);
    void removeAll();
    void insertAtIndex(FaxRecipient* recipient, CFIndex index);
    void append(FaxRecipient* recipient);
    /// By identity; of two adjacent entries of the same record only the first goes.
    void remove(FaxRecipient* recipient);
    /// Whether one has the same first name, last name and fax number, exactly.
    [[nodiscard]] bool containsRecipient(const FaxRecipient* recipient) const;

    /// Empties the list first.
    void fromTicket(CFArrayRef ticket);
    /// The caller releases it.
    [[nodiscard]] CFMutableArrayRef toTicket() const;

    /// Makes a group of that name; recipients that are not in the address book are added first.
    /// False, with nothing saved, when the group cannot be made. The user may have to wait.
    bool saveAsABGroupWithName(CFStringRef name);

private:
    Owned<CFMutableArrayRef> recipients_;
};

}  // namespace kalmo
