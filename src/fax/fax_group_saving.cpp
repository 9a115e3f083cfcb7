// The recipients of a fax as a group of the address book.
#include <algorithm>
#include <mutex>
#include <unordered_set>

#include "fax/fax_address_book.h"
#include "fax/recipient_saving.h"

namespace kalmo {
namespace {

using contacts::Answer;
using contacts::Code;
using contacts::Group;
using contacts::Person;

/// What both threads know of the group that is being saved. Only the lock's holder looks: the user
/// may stop waiting at any time.
struct SavedSoFar {
    std::mutex lock;
    Group group;
    std::vector<std::string> uids;  // of the recipients, empty where it is not in the book yet
    Answer answer{.code = Code::cancelled, .text = {}};
};

/// On the thread that saves.
class GroupSaving final {
public:
    GroupSaving(contacts::AddressBook& book, const std::stop_token& stop, SavedSoFar& soFar)
        : book_(book), stop_(stop), soFar_(soFar), group_(soFar.group) {}

    Answer save(std::vector<Person> recipients) {
        Answer answer = group_.uid.empty() ? saveGroup() : Answer{};
        for (std::size_t i = 0; i < recipients.size() && answer; ++i)
            if (recipients[i].uid.empty()) answer = addPerson(recipients[i], i);
        if (!answer) return answer;
        group_.members = uniqueUIDs(recipients);
        answer = saveGroup();
        return answer.code == Code::conflict ? saveOverOthers() : answer;
    }

private:
    Answer addPerson(Person& person, std::size_t index) {
        contacts::Changes changes{.persons = {person}, .groups = {}};
        Answer answer = book_.save(changes, stop_);
        if (!answer) return answer;
        person.uid = changes.persons.front().uid;
        const std::lock_guard locked(soFar_.lock);
        soFar_.uids[index] = person.uid;
        return answer;
    }

    Answer saveGroup() {
        contacts::Changes changes{.persons = {}, .groups = {group_}};
        Answer answer = book_.save(changes, stop_);
        if (!answer) return answer;
        group_ = changes.groups.front();
        const std::lock_guard locked(soFar_.lock);
        soFar_.group = group_;
        return answer;
    }

    /// Another program has changed the group since it was made: its members stay, ours join them.
    Answer saveOverOthers() {
        contacts::Contacts stored;
        if (Answer answer = book_.load(stored, stop_); !answer) return answer;
        const auto theirs = std::ranges::find(stored.groups, group_.uid, &Group::uid);
        if (theirs == stored.groups.end()) return {.code = Code::notFound, .text = {}};
        for (const std::string& uid : theirs->members)
            if (std::ranges::find(group_.members, uid) == group_.members.end())
                group_.members.push_back(uid);
        group_.revision = theirs->revision;
        return saveGroup();
    }

    /// A person may be there with more than one of its numbers.
    static std::vector<std::string> uniqueUIDs(const std::vector<Person>& persons) {
        std::vector<std::string> uids;
        std::unordered_set<std::string_view> seen;
        for (const Person& person : persons)
            if (seen.insert(person.uid).second) uids.push_back(person.uid);
        return uids;
    }

    contacts::AddressBook& book_;
    const std::stop_token& stop_;
    SavedSoFar& soFar_;
    Group group_;
};

/// Each once, even where the list holds it twice.
std::vector<FaxRecipient*> RecipientsOf(const FaxRecipientList& list) {
    std::vector<FaxRecipient*> recipients;
    std::unordered_set<FaxRecipient*> seen;
    for (CFIndex i = 0; i < list.count(); ++i)
        if (seen.insert(list.recipientAtIndex(i)).second)
            recipients.push_back(list.recipientAtIndex(i));
    return recipients;
}

}  // namespace

Answer SaveAsGroup(const FaxRecipientList& list, Group& group) {
    const std::vector<FaxRecipient*> recipients = RecipientsOf(list);
    std::vector<Person> persons;
    for (const FaxRecipient* recipient : recipients)
        persons.push_back(PersonFromRecipient(*recipient));
    const auto soFar = std::make_shared<SavedSoFar>();
    soFar->group = group;
    for (const Person& person : persons) soFar->uids.push_back(person.uid);
    const bool isAnswered =
        AskAddressBook([soFar, persons = std::move(persons)](const contacts::Opened& opened,
                                                             const std::stop_token& stop) {
            const Answer answer =
                opened.book ? GroupSaving(*opened.book, stop, *soFar).save(persons) : opened.answer;
            const std::lock_guard locked(soFar->lock);
            soFar->answer = answer;
        });
    const std::lock_guard locked(soFar->lock);
    for (std::size_t i = 0; i < recipients.size(); ++i)
        if (CFStringGetLength(recipients[i]->uid()) == 0 && !soFar->uids[i].empty())
            recipients[i]->setUID(
                Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(soFar->uids[i])));
    group = soFar->group;
    return isAnswered ? soFar->answer : Answer{.code = Code::cancelled, .text = {}};
}

bool FaxRecipientList::saveAsABGroupWithName(CFStringRef name) {
    Group group{.uid = {}, .revision = {}, .name = CFStringToUTF8(name), .members = {}};
    return static_cast<bool>(SaveAsGroup(*this, group));
}

}  // namespace kalmo
