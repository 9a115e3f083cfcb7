#include "fax/candidate_recipient.h"

#include <algorithm>

#include "fax/fax_address_book.h"

namespace kalmo {
namespace {

using contacts::Entry;
using contacts::Label;
using Text = Owned<CFStringRef>;

Text TextIfGiven(const std::string& text) {
    return text.empty() ? Text() : Text::Adopt(CFStringCreateFromUTF8(text));
}

/// The person's first number to talk to; the entry itself where there is none.
const std::string& TelephoneOf(const contacts::Person& person, const Entry& entry) {
    const auto voice = std::ranges::find_if(person.phones, [](const Entry& phone) {
        return !IsFax(phone.label) && phone.label != Label::pager && !phone.value.empty();
    });
    return voice == person.phones.end() ? entry.value : voice->value;
}

}  // namespace

FaxRecipient* CreateRecipientFromEntry(CFBundleRef bundle, const contacts::Person& person,
                                       const Entry& entry) {
    Text firstName, lastName;
    RecipientNamesFromPerson(person, firstName.adopt(), lastName.adopt());
    auto* const recipient = new FaxRecipient(firstName, lastName, TextIfGiven(entry.value));
    recipient->setFaxNumberLabel(Text::Adopt(CopyLocalizedLabel(bundle, entry)));
    recipient->setUID(TextIfGiven(person.uid));
    recipient->setOrganization(TextIfGiven(person.organization));
    if (!person.emails.empty())
        recipient->setEmailAddress(TextIfGiven(person.emails.front().value));
    recipient->setPhoneNumber(TextIfGiven(TelephoneOf(person, entry)));
    recipient->setMailbox(TextIfGiven(person.mailbox));
    return recipient;
}

}  // namespace kalmo
