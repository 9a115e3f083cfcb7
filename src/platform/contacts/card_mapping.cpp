#include "contacts/card_mapping.h"

#include <array>
#include <random>

#include "contacts/card_edit.h"

namespace contacts {

namespace {

constexpr std::string_view kNewPerson = "BEGIN:VCARD\r\nVERSION:3.0\r\nEND:VCARD\r\n";
constexpr std::string_view kNewGroup =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nKIND:group\r\nX-ADDRESSBOOKSERVER-KIND:group\r\nEND:VCARD\r\n";
constexpr std::string_view kNewContactList =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nX-EVOLUTION-LIST:TRUE\r\nEND:VCARD\r\n";

std::vector<Card> CardsOf(std::string_view text) {
    return text.size() > kLargestCard ? std::vector<Card>() : Card::ReadAll(text);
}

Record RecordOf(const Card& card) {
    const CardFields fields(card);
    if (IsGroup(card, fields)) return GroupOf(card, fields);
    return PersonOf(card, fields);
}

/// A name to show follows what it was made of, until somebody gives another.
std::string FullName(const Person& stored, const Person& wanted) {
    if (!wanted.full.empty() && wanted.full != stored.full) return wanted.full;
    const bool follows = wanted.full.empty() || stored.full == DisplayName(stored);
    return follows ? DisplayName(wanted) : stored.full;
}

void ApplyNames(CardEdit& edit, const Person& stored, const Person& wanted, bool isNew) {
    if (wanted.uid != stored.uid && !wanted.uid.empty()) edit.setText(Field::uid, wanted.uid);
    const std::string full = FullName(stored, wanted);
    const bool shownAnew = full != stored.full;
    if (shownAnew) edit.setText(Field::formattedName, full);
    // What was only read from the name to show must now be said.
    const bool firstWasShown = shownAnew && stored.first == stored.full;
    const bool organizationWasShown = shownAnew && stored.organization == stored.full;
    if (isNew || firstWasShown || wanted.first != stored.first || wanted.last != stored.last) {
        edit.setParts(Field::name, {wanted.last, wanted.first});
    }
    if (organizationWasShown || wanted.organization != stored.organization) {
        edit.setParts(Field::organization, {wanted.organization});
    }
    if (wanted.isCompany != stored.isCompany) edit.setCompany(wanted.isCompany);
}

void ApplyDetails(CardEdit& edit, const Person& stored, const Person& wanted) {
    if (wanted.phones != stored.phones) edit.setEntries(Field::phone, wanted.phones);
    if (wanted.emails != stored.emails) edit.setEntries(Field::email, wanted.emails);
    if (wanted.mailbox != stored.mailbox) edit.setText(Field::mailbox, wanted.mailbox);
    if (wanted.groups != stored.groups) edit.setCategories(wanted.groups);
}

void ApplyGroupName(CardEdit& edit, const Card& card, const Group& stored, const Group& wanted,
                    bool isNew) {
    const std::size_t name = edit.fields().first(Field::name);
    const bool named = Unescaped(PartsOf(card, name, 1)[0]) == stored.name;
    edit.setText(Field::formattedName, wanted.name);
    if (isNew || (name != kNoLine && named)) edit.setParts(Field::name, {wanted.name});
}

std::string Finished(CardEdit& edit, const Card& card, bool isNew) {
    if (card.wasEdited()) edit.renewRevision(isNew);
    return card.text();
}

}  // namespace

std::optional<Record> ReadCard(std::string_view text) {
    const std::vector<Card> cards = CardsOf(text);
    if (cards.size() != 1) return std::nullopt;
    return RecordOf(cards.front());
}

std::vector<Record> ReadCards(std::string_view text) {
    std::vector<Record> records;
    for (const Card& card : CardsOf(text)) records.push_back(RecordOf(card));
    return records;
}

std::optional<std::string> ApplyPerson(std::string_view existing, const Person& person) {
    const bool isNew = existing.empty();
    std::vector<Card> cards = CardsOf(isNew ? kNewPerson : existing);
    if (cards.size() != 1) return std::nullopt;
    Card& card = cards.front();
    CardEdit edit(card);
    if (IsGroup(card, edit.fields())) return std::nullopt;
    const Person stored = PersonOf(card, edit.fields());
    ApplyNames(edit, stored, person, isNew);
    ApplyDetails(edit, stored, person);
    return Finished(edit, card, isNew);
}

std::optional<std::string> ApplyGroup(std::string_view existing, const Group& group, GroupForm form,
                                      const MemberAddress& addressOf) {
    const bool isNew = existing.empty();
    const std::string_view start = form == GroupForm::card ? kNewGroup : kNewContactList;
    std::vector<Card> cards = CardsOf(isNew ? start : existing);
    if (cards.size() != 1) return std::nullopt;
    Card& card = cards.front();
    CardEdit edit(card);
    if (!IsGroup(card, edit.fields())) return std::nullopt;
    const Group stored = GroupOf(card, edit.fields());
    if (group.uid != stored.uid && !group.uid.empty()) edit.setText(Field::uid, group.uid);
    if (group.name != stored.name) ApplyGroupName(edit, card, stored, group, isNew);
    if (group.members != stored.members) edit.setMembers(group.members, addressOf);
    return Finished(edit, card, isNew);
}

std::string NewUid() {
    std::random_device random;
    std::array<unsigned, 4> words{};
    for (unsigned& word : words) word = random();
    words[1] = (words[1] & 0xFFFF0FFF) | 0x4000;      // version 4
    words[2] = (words[2] & 0x3FFFFFFF) | 0x80000000;  // and its variant
    char text[37];
    std::snprintf(text, sizeof text, "%08x-%04x-%04x-%04x-%04x%08x", words[0], words[1] >> 16,
                  words[1] & 0xFFFF, words[2] >> 16, words[2] & 0xFFFF, words[3]);
    return text;
}

}  // namespace contacts
