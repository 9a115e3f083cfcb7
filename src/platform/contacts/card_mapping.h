// Persons and groups as vCards: what a card says, and a card edited to say something else.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "contacts/person.h"

#pragma GCC visibility push(default)

namespace contacts {

using Record = std::variant<Person, Group>;

/// Bytes; a larger text is no card to us.
inline constexpr std::size_t kLargestCard = 8u << 20;

/// The card in `text`, of version 2.1, 3.0 or 4.0; nothing when it is damaged, foreign or too
/// large, or when there are several. The uid is empty when the card has none, the revision is its
/// REV. A contact list (X-EVOLUTION-LIST) is a group, too.
[[nodiscard]] std::optional<Record> ReadCard(std::string_view text);
/// Every card in `text`; none when any of them is damaged.
[[nodiscard]] std::vector<Record> ReadCards(std::string_view text);

/// `existing` (empty: a new card, of version 3.0) saying what the person says. What differs is
/// edited, line by line; every other byte stays. A difference renews REV. Nothing when `existing`
/// is not exactly one person's card.
[[nodiscard]] std::optional<std::string> ApplyPerson(std::string_view existing,
                                                     const Person& person);

/// How a new group's card names its members: KIND:group with MEMBER lines, or X-EVOLUTION-LIST with
/// EMAIL lines that carry X-EVOLUTION-DEST-CONTACT-UID. An existing one keeps its form.
enum class GroupForm { card, contactList };
/// "Name <address>" of a member that a contact list gains; empty: it has no address.
using MemberAddress = std::function<std::string(const std::string& uid)>;
/// As ApplyPerson, for exactly one group's card.
[[nodiscard]] std::optional<std::string> ApplyGroup(std::string_view existing, const Group& group,
                                                    GroupForm form = GroupForm::card,
                                                    const MemberAddress& addressOf = {});

/// A random uid (UUID of version 4, lower case).
[[nodiscard]] std::string NewUid();

}  // namespace contacts

#pragma GCC visibility pop
