// One recipient of a fax. Records are counted: each list or dialog that keeps one holds a
// reference.
#pragma once

#include <memory>

#include "contacts/person.h"
#include "foundation/collections.h"

namespace kalmo {

#define kFaxRecipientFirstNameProperty CFSTR("FirstName")
#define kFaxRecipientLastNameProperty CFSTR("LastName")
#define kFaxRecipientFaxNumberProperty CFSTR("FaxNumber")
#define kFaxRecipientFaxNumberLabelProperty CFSTR("FaxNumberLabel")
#define kFaxRecipientOrganizationProperty CFSTR("Organization")
#define kFaxRecipientPhoneNumberProperty CFSTR("PhoneNumber")
#define kFaxRecipientEmailAddressProperty CFSTR("EmailAddress")
#define kFaxRecipientMailboxProperty CFSTR("Mailbox")
#define kFaxRecipientUIDProperty CFSTR("UID")

/// Nine texts, each null when there is none; the record holds a reference to each.
class FaxRecipient final {
public:
    FaxRecipient() = default;
    FaxRecipient(CFStringRef firstName, CFStringRef lastName, CFStringRef faxNumber);
    explicit FaxRecipient(CFDictionaryRef ticket);
    /// A copy counts 1.
    FaxRecipient(const FaxRecipient& other);
    FaxRecipient& operator=(const FaxRecipient& other);

    [[nodiscard]] CFStringRef firstName() const { return firstName_; }
    [[nodiscard]] CFStringRef lastName() const { return lastName_; }
    [[nodiscard]] CFStringRef faxNumber() const { return faxNumber_; }
    [[nodiscard]] CFStringRef faxNumberLabel() const { return faxNumberLabel_; }
    [[nodiscard]] CFStringRef organization() const { return organization_; }
    [[nodiscard]] CFStringRef phoneNumber() const { return phoneNumber_; }
    [[nodiscard]] CFStringRef emailAddress() const { return emailAddress_; }
    [[nodiscard]] CFStringRef mailbox() const { return mailbox_; }
    [[nodiscard]] CFStringRef uid() const { return uid_; }
    void setFirstName(CFStringRef text);
    void setLastName(CFStringRef text);
    void setFaxNumber(CFStringRef text);
    void setFaxNumberLabel(CFStringRef text);
    void setOrganization(CFStringRef text);
    void setPhoneNumber(CFStringRef text);
    void setEmailAddress(CFStringRef text);
    void setMailbox(CFStringRef text);
    void setUID(CFStringRef text);

    /// The new count; neither deletes (FaxRecipientRelease does).
    SInt32 retain();
    SInt32 release();

    /// Every field from its key, cleared when that is missing. Null changes nothing.
    void fromTicket(CFDictionaryRef ticket);
    /// A key for each field that has a value. The caller releases it.
    [[nodiscard]] CFMutableDictionaryRef toTicket() const;

    /// The address book's record of this uid; null without one. The user may have to wait.
    [[nodiscard]] std::unique_ptr<contacts::Person> abRecord() const;
    /// Adds the recipient to the address book as a person, whose uid it takes. Whether it was
    /// added. The user may have to wait.
    bool commitToAddressBook();

private:
    Owned<CFStringRef> firstName_, lastName_, faxNumber_, faxNumberLabel_, organization_,
        phoneNumber_, emailAddress_, mailbox_, uid_;
    SInt32 refCount_ = 1;
};

void FaxRecipientRetain(FaxRecipient* recipient);
/// Deletes the record when the count reaches 0.
void FaxRecipientRelease(FaxRecipient* recipient);
const void* FaxRecipientRetainCallback(CFAllocatorRef, const void* recipient);
void FaxRecipientReleaseCallback(CFAllocatorRef, const void* recipient);
/// Retain and release as above; elements compare by identity.
extern const CFArrayCallBacks kFaxRecipientCFArrayCallbacks;

/// First and last name, those that are set, with a space between. The caller releases it.
[[nodiscard]] CFStringRef DisplayNameFromRecipient(const FaxRecipient* recipient);

}  // namespace kalmo
