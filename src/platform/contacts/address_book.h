// The user's address book: a folder of vCard files that other programs share, or the desktop's.
//
// Everything here may block (disk, D-Bus) and is called on worker threads only, but for the
// settings. Each call comes back soon after its stop is requested.
#pragma once

#include <filesystem>
#include <memory>
#include <stop_token>
#include <string>

#include "contacts/person.h"

#pragma GCC visibility push(default)

namespace contacts {

enum class Code {
    done,
    unavailable,  // no such address book here
    timedOut,
    cancelled,
    notFound,
    conflict,  // the stored record is another than the one that was read
    readOnly,
    noSpace,
    failed,
};
struct Answer {
    Code code = Code::done;
    std::string text;  // one line in English for the log: what, and where; empty when done
    [[nodiscard]] explicit operator bool() const { return code == Code::done; }
};

/// What to store, in this order. An empty uid: a new record, which is given one. With a revision,
/// the stored record must still be the one that was read (else conflict); without one it is
/// replaced. What a record holds beyond these fields stays as it is stored.
struct Changes {
    std::vector<Person> persons;
    std::vector<Group> groups;
};

class AddressBook {
public:
    virtual ~AddressBook() = default;
    /// Everything but what cannot be read, which is counted.
    virtual Answer load(Contacts& contacts, const std::stop_token& stop) = 0;
    /// notFound when there is none of that uid, or it is a group.
    virtual Answer person(const std::string& uid, Person& person, const std::stop_token& stop) = 0;
    /// Persons, then groups, up to the first that fails: those before it are stored, and have their
    /// uid and revision now.
    virtual Answer save(Changes& changes, const std::stop_token& stop) = 0;
    /// The user's own card; notFound when none is marked. Never makes one.
    virtual Answer me(Person& person, const std::stop_token& stop) = 0;
    /// Marks the card as the user's own; empty: none is.
    virtual Answer setMe(const std::string& uid, const std::stop_token& stop) = 0;
};

enum class Source { automatic, folder, desktop };
struct Settings {
    Source source = Source::automatic;
    std::filesystem::path folder;  // empty: DefaultFolder()
    bool operator==(const Settings&) const = default;
};
/// The host's, from its settings; any thread.
void SetSettings(const Settings& settings);
[[nodiscard]] Settings CurrentSettings();
/// $XDG_DATA_HOME/kalmo-print/contacts
[[nodiscard]] std::filesystem::path DefaultFolder();

struct Opened {
    std::shared_ptr<AddressBook> book;  // null: see answer
    Source source = Source::folder;     // folder or desktop: where it is
    Answer answer;                      // with a book of "automatic": why it is not the desktop's
    std::filesystem::path folder;       // of a folder
};
/// Automatic: the desktop's where one answers within three seconds, else the folder; decided once
/// while the program runs. The folder is made when something is saved first.
[[nodiscard]] Opened OpenAddressBook(const Settings& settings, const std::stop_token& stop);

/// The two kinds.
[[nodiscard]] std::shared_ptr<AddressBook> OpenFolder(const std::filesystem::path& folder);
/// Null, and why, without a desktop address book (or without the module that talks to it).
[[nodiscard]] std::shared_ptr<AddressBook> OpenDesktop(const std::stop_token& stop, Answer& why);

}  // namespace contacts

#pragma GCC visibility pop
