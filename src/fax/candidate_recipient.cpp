#include "fax/candidate_recipient.h"

#include "fax/fax_address_book.h"

namespace kalmo {
namespace {

using contacts::Entry;
using Text = Owned<CFStringRef>;

Text TextIfGiven(const std::string& text) {
    return text.empty() ? Text() : Text::Adopt(CFStringCreateFromUTF8(text));
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
    if (const Entry* const email = PrimaryEmail(person))
        recipient->setEmailAddress(TextIfGiven(email->value));
    // Who cannot be talked to elsewhere is at that number.
    const Entry* const telephone = PrimaryTelephone(person);
    recipient->setPhoneNumber(TextIfGiven(telephone ? telephone->value : entry.value));
    recipient->setMailbox(TextIfGiven(person.mailbox));
    return recipient;
}

}  // namespace kalmo
