#include "fax/fax_recipient.h"

#include "settings/dictionary.h"

namespace kalmo {
namespace {

using Getter = CFStringRef (FaxRecipient::*)() const;
using Setter = void (FaxRecipient::*)(CFStringRef);

struct FieldRow {
    CFStringRef key;
    Getter get;
    Setter set;
};

const FieldRow kFields[] = {
    {kFaxRecipientFirstNameProperty, &FaxRecipient::firstName, &FaxRecipient::setFirstName},
    {kFaxRecipientLastNameProperty, &FaxRecipient::lastName, &FaxRecipient::setLastName},
    {kFaxRecipientFaxNumberProperty, &FaxRecipient::faxNumber, &FaxRecipient::setFaxNumber},
    {kFaxRecipientFaxNumberLabelProperty, &FaxRecipient::faxNumberLabel,
     &FaxRecipient::setFaxNumberLabel},
    {kFaxRecipientOrganizationProperty, &FaxRecipient::organization,
     &FaxRecipient::setOrganization},
    {kFaxRecipientPhoneNumberProperty, &FaxRecipient::phoneNumber, &FaxRecipient::setPhoneNumber},
    {kFaxRecipientEmailAddressProperty, &FaxRecipient::emailAddress,
     &FaxRecipient::setEmailAddress},
    {kFaxRecipientMailboxProperty, &FaxRecipient::mailbox, &FaxRecipient::setMailbox},
    {kFaxRecipientUIDProperty, &FaxRecipient::uid, &FaxRecipient::setUID},
};

void AppendIfGiven(CFMutableArrayRef names, CFStringRef name) {
    if (CFStringGetLength(name) > 0) CFArrayAppendValue(names, name);
}

}  // namespace

FaxRecipient::FaxRecipient(CFStringRef firstName, CFStringRef lastName, CFStringRef faxNumber) {
    setFirstName(firstName);
    setLastName(lastName);
    setFaxNumber(faxNumber);
}

FaxRecipient::FaxRecipient(CFDictionaryRef ticket) { fromTicket(ticket); }

FaxRecipient::FaxRecipient(const FaxRecipient& other) { *this = other; }

FaxRecipient& FaxRecipient::operator=(const FaxRecipient& other) {
    if (this == &other) return *this;
    // The references held to a record are those to this one: the count stays.
    for (const auto& [key, get, set] : kFields) (this->*set)((other.*get)());
    return *this;
}

void FaxRecipient::setFirstName(CFStringRef text) { firstName_ = Owned<CFStringRef>::Retain(text); }
void FaxRecipient::setLastName(CFStringRef text) { lastName_ = Owned<CFStringRef>::Retain(text); }
void FaxRecipient::setFaxNumber(CFStringRef text) { faxNumber_ = Owned<CFStringRef>::Retain(text); }
void FaxRecipient::setFaxNumberLabel(CFStringRef text) {
    faxNumberLabel_ = Owned<CFStringRef>::Retain(text);
}
void FaxRecipient::setOrganization(CFStringRef text) {
    organization_ = Owned<CFStringRef>::Retain(text);
}
void FaxRecipient::setPhoneNumber(CFStringRef text) {
    phoneNumber_ = Owned<CFStringRef>::Retain(text);
}
void FaxRecipient::setEmailAddress(CFStringRef text) {
    emailAddress_ = Owned<CFStringRef>::Retain(text);
}
void FaxRecipient::setMailbox(CFStringRef text) { mailbox_ = Owned<CFStringRef>::Retain(text); }
void FaxRecipient::setUID(CFStringRef text) { uid_ = Owned<CFStringRef>::Retain(text); }

SInt32 FaxRecipient::retain() { return ++refCount_; }
SInt32 FaxRecipient::release() { return --refCount_; }

void FaxRecipient::fromTicket(CFDictionaryRef ticket) {
    if (!ticket) return;
    for (const auto& [key, get, set] : kFields) (this->*set)(StringInDictionary(ticket, key));
}

CFMutableDictionaryRef FaxRecipient::toTicket() const {
    const CFMutableDictionaryRef ticket = CFDictionaryCreateMutable(kCFAllocatorDefault, 0);
    for (const auto& [key, get, set] : kFields)
        CFDictionarySetValue(ticket, key, (this->*get)());  // null sets nothing
    return ticket;
}

void FaxRecipientRetain(FaxRecipient* recipient) {
    if (recipient) recipient->retain();
}

void FaxRecipientRelease(FaxRecipient* recipient) {
    if (recipient && recipient->release() <= 0) delete recipient;
}

const void* FaxRecipientRetainCallback(CFAllocatorRef, const void* recipient) {
    FaxRecipientRetain(static_cast<FaxRecipient*>(const_cast<void*>(recipient)));
    return recipient;
}

void FaxRecipientReleaseCallback(CFAllocatorRef, const void* recipient) {
    FaxRecipientRelease(static_cast<FaxRecipient*>(const_cast<void*>(recipient)));
}

const CFArrayCallBacks kFaxRecipientCFArrayCallbacks = {.version = 0,
                                                        .retain = FaxRecipientRetainCallback,
                                                        .release = FaxRecipientReleaseCallback,
                                                        .copyDescription = nullptr,
                                                        .equal = nullptr};

CFStringRef DisplayNameFromRecipient(const FaxRecipient* recipient) {
    const auto names = Owned<CFMutableArrayRef>::Adopt(
        CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks));
    if (recipient) {
        AppendIfGiven(names, recipient->firstName());
        AppendIfGiven(names, recipient->lastName());
    }
    return Owned<CFStringRef>::Adopt(
               CFStringCreateByCombiningStrings(kCFAllocatorDefault, names, CFSTR(" ")))
        .detach();
}

}  // namespace kalmo
