// The desktop's default address book as the program's: its cards read and written as vCards.
#pragma once

#include <functional>

#include "contacts/card_mapping.h"
#include "contacts/eds/connection.h"

namespace contacts::eds {

/// All on the thread that made it. Revisions are of this program's run.
class DesktopCards final : public AddressBook {
public:
    /// The other calls open what is not open, too.
    Answer open(const std::stop_token& stop);

    Answer load(Contacts& contacts, const std::stop_token& stop) override;
    Answer person(const std::string& uid, Person& person, const std::stop_token& stop) override;
    Answer save(Changes& changes, const std::stop_token& stop) override;
    Answer me(Person& person, const std::stop_token& stop) override;
    Answer setMe(const std::string& uid, const std::stop_token& stop) override;

private:
    /// What one attempt works with.
    struct Attempt {
        GCancellable* cancellable;
        Failure error;
    };
    using Call = std::function<Answer(Attempt& attempt)>;

    /// Connects, calls, and does both once more when the service has gone meanwhile.
    Answer ask(const std::stop_token& stop, const Call& call);
    Answer connect(GCancellable* cancellable);
    Answer fetch(const std::string& uid, std::string& card, Attempt& attempt);
    template <class Kind>
    Answer store(Kind& record, const std::stop_token& stop);
    template <class Kind>
    Answer add(Kind& record, const std::string& uid, Attempt& attempt);
    template <class Kind>
    Answer replace(Kind& record, Attempt& attempt);
    template <class Kind>
    void noteStored(Kind& record, const std::string& uid, GCancellable* cancellable);
    /// "Name <address>" of a person with an e-mail address; else empty.
    std::string addressOf(const std::string& uid, GCancellable* cancellable);
    std::optional<std::string> applied(const std::string& card, const Person& person,
                                       GCancellable* cancellable);
    std::optional<std::string> applied(const std::string& card, const Group& group,
                                       GCancellable* cancellable);

    OwnContext context_;
    Connection connection_;
};

}  // namespace contacts::eds
