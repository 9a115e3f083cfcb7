#include "contacts/eds/desktop_cards.h"

#include <algorithm>

#include "contacts/eds/failures.h"
#include "contacts/eds/known_record.h"
#include "contacts/eds/own_card.h"
#include "contacts/eds/whole_book.h"

namespace contacts::eds {
namespace {

constexpr const char* kReading = "reading a card of the desktop's address book";
constexpr const char* kWriting = "writing a card of the desktop's address book";

void Take(const std::string& uid, const std::string& card, Contacts& contacts) {
    std::optional<Record> record = ReadKnownRecord(uid, card);
    if (!record) {
        ++contacts.passedOver;
    } else if (auto* person = std::get_if<Person>(&*record)) {
        contacts.persons.push_back(std::move(*person));
    } else {
        contacts.groups.push_back(std::move(std::get<Group>(*record)));
    }
}

/// As a mail header names somebody.
std::string NamedAddress(std::string name, const std::string& address) {
    if (name.empty()) return address;
    std::erase_if(name, [](char c) { return c == '"' || c == '\\'; });
    const bool isPlain = name.find_first_of(",;:.<>()[]@") == std::string::npos;
    return (isPlain ? name : '"' + name + '"') + " <" + address + '>';
}

template <class Kind>
std::string RevisionIn(const std::string& uid, const std::string& card) {
    const std::optional<Record> record = ReadKnownRecord(uid, card);
    const auto* known = record ? std::get_if<Kind>(&*record) : nullptr;
    return known ? known->revision : "";
}

}  // namespace

Answer DesktopCards::open(const std::stop_token& stop) {
    const Cancellation cancellation(stop);
    return connection_.open(cancellation);
}

Answer DesktopCards::connect(GCancellable* cancellable) {
    while (g_main_context_iteration(context_, false)) {
    }  // brings the news that the service has gone
    if (connection_.isLost()) connection_.drop();
    if (g_cancellable_is_cancelled(cancellable))
        return {Code::cancelled, "asking the desktop's address book"};
    return connection_.open(cancellable);
}

Answer DesktopCards::ask(const std::stop_token& stop, const Call& call) {
    const Cancellation cancellation(stop);
    Answer answer;
    for (int attempts = 0; attempts < 2; ++attempts) {
        answer = connect(cancellation);
        if (!answer) break;
        Attempt attempt{cancellation, {}};
        answer = call(attempt);
        if (answer || !(IsLinkLost(attempt.error.pointer) || connection_.isLost())) break;
        connection_.drop();
    }
    return answer;
}

Answer DesktopCards::load(Contacts& contacts, const std::stop_token& stop) {
    const Answer answer = ask(stop, [&](Attempt& attempt) {
        contacts = {};
        return ReadWholeBook(
            connection_, attempt.cancellable,
            [&](const std::string& uid, const std::string& card) { Take(uid, card, contacts); },
            attempt.error);
    });
    if (!answer) return answer;
    const std::string own = OwnCardUid();
    if (std::ranges::find(contacts.persons, own, &Person::uid) != contacts.persons.end())
        contacts.me = own;
    return answer;
}

Answer DesktopCards::person(const std::string& uid, Person& person, const std::stop_token& stop) {
    std::string card;
    Answer answer = ask(stop, [&](Attempt& attempt) { return fetch(uid, card, attempt); });
    if (!answer) return answer;
    std::optional<Record> record = ReadKnownRecord(uid, card);
    auto* const found = record ? std::get_if<Person>(&*record) : nullptr;
    if (!found) return {Code::notFound, std::string(kReading) + ": it is no person's"};
    person = std::move(*found);
    return {};
}

Answer DesktopCards::save(Changes& changes, const std::stop_token& stop) {
    for (Person& person : changes.persons)
        if (Answer answer = store(person, stop); !answer) return answer;
    for (Group& group : changes.groups)
        if (Answer answer = store(group, stop); !answer) return answer;
    return {};
}

Answer DesktopCards::me(Person& own, const std::stop_token& stop) {
    Answer answer = ask(stop, [](Attempt&) { return Answer{}; });
    if (!answer) return answer;
    const std::string uid = OwnCardUid();
    if (uid.empty()) return {Code::notFound, "no card is marked as the user's own"};
    return person(uid, own, stop);
}

Answer DesktopCards::setMe(const std::string& uid, const std::stop_token& stop) {
    Person own;
    if (Answer answer = uid.empty() ? Answer{} : person(uid, own, stop); !answer) return answer;
    return ask(stop, [&](Attempt&) { return SetOwnCardUid(uid); });
}

Answer DesktopCards::fetch(const std::string& uid, std::string& card, Attempt& attempt) {
    EContact* contact = nullptr;
    if (!e_book_client_get_contact_sync(connection_.client(), uid.c_str(), &contact,
                                        attempt.cancellable, &attempt.error.pointer)) {
        return AnswerTo(attempt.error.pointer, kReading);
    }
    card = TextOf(Held<EContact>(contact).get());
    return {};
}

template <class Kind>
Answer DesktopCards::store(Kind& record, const std::stop_token& stop) {
    // One uid for both attempts: the first may have stored the card before it failed.
    const std::string uid = record.uid.empty() ? NewUid() : record.uid;
    // Not asked whether it can be changed at all: the service says so too late, and of every book
    // first that it cannot. Its refusal is the answer.
    return ask(stop, [&](Attempt& attempt) {
        return record.uid.empty() ? add(record, uid, attempt) : replace(record, attempt);
    });
}

template <class Kind>
Answer DesktopCards::add(Kind& record, const std::string& uid, Attempt& attempt) {
    Kind named = record;
    named.uid = uid;
    const auto card = applied({}, named, attempt.cancellable);
    if (!card) return {Code::failed, std::string(kWriting) + ": it cannot be made"};
    const Held<EContact> contact(e_contact_new_from_vcard(card->c_str()));
    GError*& error = attempt.error.pointer;
    char* uidThere = nullptr;
    const bool isAdded = e_book_client_add_contact_sync(connection_.client(), contact.get(),
                                                        E_BOOK_OPERATION_FLAG_NONE, &uidThere,
                                                        attempt.cancellable, &error);
    const HeldText stored(uidThere);
    const bool isThere =
        g_error_matches(error, E_BOOK_CLIENT_ERROR, E_BOOK_CLIENT_ERROR_CONTACT_ID_ALREADY_EXISTS);
    if (!isAdded && !isThere) return AnswerTo(error, kWriting);
    noteStored(record, stored ? stored.get() : uid, attempt.cancellable);
    return {};
}

template <class Kind>
Answer DesktopCards::replace(Kind& record, Attempt& attempt) {
    std::string existing;
    if (Answer answer = fetch(record.uid, existing, attempt); !answer) return answer;
    if (!record.revision.empty() && record.revision != RevisionIn<Kind>(record.uid, existing))
        return {Code::conflict, std::string(kWriting) + ": it was changed meanwhile"};
    Kind wanted = record;
    wanted.uid.clear();  // it stays as it is written
    const auto card = applied(existing, wanted, attempt.cancellable);
    if (!card) return {Code::failed, std::string(kWriting) + ": it is of another kind"};
    if (*card != existing) {
        const Held<EContact> contact(e_contact_new_from_vcard(card->c_str()));
        if (!e_book_client_modify_contact_sync(connection_.client(), contact.get(),
                                               E_BOOK_OPERATION_FLAG_NONE, attempt.cancellable,
                                               &attempt.error.pointer)) {
            return AnswerTo(attempt.error.pointer, kWriting);
        }
    }
    noteStored(record, record.uid, attempt.cancellable);
    return {};
}

/// The service has the last word on what a card says, and with it on the revision.
template <class Kind>
void DesktopCards::noteStored(Kind& record, const std::string& uid, GCancellable* cancellable) {
    std::string card;
    Attempt attempt{cancellable, {}};
    const bool isRead = static_cast<bool>(fetch(uid, card, attempt));
    record.uid = uid;
    record.revision = isRead ? RevisionIn<Kind>(uid, card) : "";
}

std::string DesktopCards::addressOf(const std::string& uid, GCancellable* cancellable) {
    std::string card;
    Attempt attempt{cancellable, {}};
    if (!fetch(uid, card, attempt)) return {};
    const std::optional<Record> record = ReadCard(card);
    const auto* person = record ? std::get_if<Person>(&*record) : nullptr;
    if (!person || person->emails.empty()) return {};
    return NamedAddress(person->full, person->emails.front().value);
}

std::optional<std::string> DesktopCards::applied(const std::string& card, const Person& person,
                                                 GCancellable*) {
    return ApplyPerson(card, person);
}

std::optional<std::string> DesktopCards::applied(const std::string& card, const Group& group,
                                                 GCancellable* cancellable) {
    return ApplyGroup(card, group, GroupForm::contactList,
                      [&](const std::string& uid) { return addressOf(uid, cancellable); });
}

}  // namespace contacts::eds
