// One recipient and its person in the address book.
#include "fax/fax_address_book.h"
#include "fax/recipient_saving.h"

namespace kalmo {

contacts::Person PersonFromRecipient(const FaxRecipient& recipient) {
    const std::string faxNumber = CFStringToUTF8(recipient.faxNumber()),
                      phoneNumber = CFStringToUTF8(recipient.phoneNumber()),
                      emailAddress = CFStringToUTF8(recipient.emailAddress());
    contacts::Person person{.uid = CFStringToUTF8(recipient.uid()),
                            .first = CFStringToUTF8(recipient.firstName()),
                            .organization = CFStringToUTF8(recipient.organization()),
                            .mailbox = CFStringToUTF8(recipient.mailbox())};
    if (!faxNumber.empty())
        person.phones.push_back({.label = contacts::Label::workFax, .value = faxNumber});
    if (!phoneNumber.empty())
        person.phones.push_back({.label = contacts::Label::work, .value = phoneNumber});
    if (!emailAddress.empty())
        person.emails.push_back({.label = contacts::Label::work, .value = emailAddress});
    return person;
}

std::unique_ptr<contacts::Person> FaxRecipient::abRecord() const {
    if (!uid_) return nullptr;
    struct Found {
        contacts::Person person;
        bool isThere = false;
    };
    const auto found = std::make_shared<Found>();
    const bool isAnswered =
        AskAddressBook([found, uid = CFStringToUTF8(uid_)](const contacts::Opened& opened,
                                                           const std::stop_token& stop) {
            found->isThere = opened.book && opened.book->person(uid, found->person, stop);
        });
    if (!isAnswered || !found->isThere) return nullptr;
    return std::make_unique<contacts::Person>(std::move(found->person));
}

bool FaxRecipient::commitToAddressBook() {
    struct Added {
        contacts::Changes changes;
        bool isStored = false;
    };
    const auto added = std::make_shared<Added>();
    added->changes.persons.push_back(PersonFromRecipient(*this));
    added->changes.persons.front().uid.clear();
    const bool isAnswered =
        AskAddressBook([added](const contacts::Opened& opened, const std::stop_token& stop) {
            added->isStored = opened.book && opened.book->save(added->changes, stop);
        });
    if (!isAnswered || !added->isStored) return false;
    uid_ = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(added->changes.persons.front().uid));
    return true;
}

}  // namespace kalmo
