// Fax recipients and the user's address book: waited for where an answer is expected at once.
#pragma once

#include <functional>

#include "contacts/address_book.h"
#include "foundation/bundle.h"

namespace kalmo {

/// "com.kalmo.mailbox": the property of a person that holds the mailbox.
#define kKMailboxABProperty CFSTR("com.kalmo.mailbox")

/// Runs `work` with the opened book (null when there is none; the answer says why) while the user
/// waits. It owns all it uses. False when the user did not wait for it; the modal loop has ended
/// then.
bool AskAddressBook(
    std::function<void(const contacts::Opened& opened, const std::stop_token& stop)> work);

/// What a person is called as a recipient; any thread. A person who has neither name goes by the
/// full one, in the place of the first.
struct PersonNames {
    std::string first, last;
};
[[nodiscard]] PersonNames NamesOf(const contacts::Person& person);
/// A company's name is its organization, with no last name. Both are to be released, and null where
/// there is none.
void RecipientNamesFromPerson(const contacts::Person& person, CFStringRef* firstName,
                              CFStringRef* lastName);
/// The entry that the card prefers, else its first; null without any. Any thread.
[[nodiscard]] const contacts::Entry* PrimaryEmail(const contacts::Person& person);
/// The same, of the numbers to talk to.
[[nodiscard]] const contacts::Entry* PrimaryTelephone(const contacts::Person& person);
/// The label's word in the user's language; of Label::custom what stands for a word that is
/// missing.
[[nodiscard]] Owned<CFStringRef> CopyLabelWord(CFBundleRef bundle, contacts::Label label);
/// The label's word in the user's language, or the user's own. The caller releases it.
[[nodiscard]] CFStringRef CopyLocalizedLabel(CFBundleRef bundle, const contacts::Entry& entry);
/// What went wrong and what the user can do about it; null for done and cancelled. What the answer
/// says itself goes to the log.
[[nodiscard]] Owned<CFStringRef> CopyAddressBookTrouble(CFBundleRef bundle,
                                                        const contacts::Answer& answer);
/// The user's own card; without one a person with the account's full name alone. Null when the user
/// did not wait for it.
[[nodiscard]] std::unique_ptr<contacts::Person> CopyMyCard();

}  // namespace kalmo
