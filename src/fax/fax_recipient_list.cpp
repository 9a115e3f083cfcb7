#include "fax/fax_recipient_list.h"

#include "settings/dictionary.h"

namespace kalmo {
namespace {

/// Hands the creator's own reference over to the list.
void AppendNew(FaxRecipientList* list, FaxRecipient* recipient) {
    list->append(recipient);
    FaxRecipientRelease(recipient);
}

/// Two missing texts are equal.
bool AreSameRecipients(const FaxRecipient& left, const FaxRecipient& right) {
    return CFEqual(left.firstName(), right.firstName()) &&
           CFEqual(left.lastName(), right.lastName()) &&
           CFEqual(left.faxNumber(), right.faxNumber());
}

}  // namespace

FaxRecipientList::FaxRecipientList()
    : recipients_(Owned<CFMutableArrayRef>::Adopt(
          CFArrayCreateMutable(kCFAllocatorDefault, 0, &kFaxRecipientCFArrayCallbacks))) {}

FaxRecipientList::FaxRecipientList(CFArrayRef ticket) : FaxRecipientList() { fromTicket(ticket); }

FaxRecipientList::FaxRecipientList(const FaxRecipientList& other) : FaxRecipientList() {
    for (CFIndex i = 0; i < other.count(); ++i)
        AppendNew(this, new FaxRecipient(*other.recipientAtIndex(i)));
}

CFIndex FaxRecipientList::count() const { return CFArrayGetCount(recipients_); }

FaxRecipient* FaxRecipientList::recipientAtIndex(CFIndex index) const {
    return static_cast<FaxRecipient*>(
        const_cast<void*>(CFArrayGetValueAtIndex(recipients_, index)));
}

void FaxRecipientList::removeAtIndex(CFIndex index) {
    CFArrayRemoveValueAtIndex(recipients_, index);
}

void FaxRecipientList::removeAll() { CFArrayRemoveAllValues(recipients_); }

void FaxRecipientList::insertAtIndex(FaxRecipient* recipient, CFIndex index) {
    if (recipient) CFArrayInsertValueAtIndex(recipients_, index, recipient);
}

void FaxRecipientList::append(FaxRecipient* recipient) { insertAtIndex(recipient, count()); }

void FaxRecipientList::remove(FaxRecipient* recipient) {
    // Kept as it is: the entry that moves up into a removed one's place is not looked at.
    for (CFIndex i = 0; i < count(); ++i)
        if (recipientAtIndex(i) == recipient) removeAtIndex(i);
}

bool FaxRecipientList::containsRecipient(const FaxRecipient* recipient) const {
    if (!recipient) return false;
    for (CFIndex i = 0; i < count(); ++i)
        if (AreSameRecipients(*recipientAtIndex(i), *recipient)) return true;
    return false;
}

void FaxRecipientList::fromTicket(CFArrayRef ticket) {
    removeAll();
    for (CFIndex i = 0; i < CFArrayGetCount(ticket); ++i) {
        const auto dictionary = ValueOfType<CFDictionaryRef>(CFArrayGetValueAtIndex(ticket, i),
                                                             CFDictionaryGetTypeID());
        if (dictionary) AppendNew(this, new FaxRecipient(dictionary));
    }
}

CFMutableArrayRef FaxRecipientList::toTicket() const {
    const CFMutableArrayRef ticket =
        CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks);
    for (CFIndex i = 0; i < count(); ++i) {
        const auto dictionary =
            Owned<CFMutableDictionaryRef>::Adopt(recipientAtIndex(i)->toTicket());
        CFArrayAppendValue(ticket, dictionary.get());
    }
    return ticket;
}

}  // namespace kalmo
