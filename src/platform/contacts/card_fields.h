// What stands where in a card: its lines by what they mean, read as a person or a group.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "contacts/person.h"
#include "contacts/vcard.h"

namespace contacts {

enum class Field {
    categories,
    contactList,
    email,
    entryLabel,
    formattedName,
    kind,
    mailbox,
    member,
    name,
    organization,
    phone,
    revision,
    shownAs,
    uid,
};
inline constexpr std::size_t kFieldCount = static_cast<std::size_t>(Field::uid) + 1;
inline constexpr std::size_t kNoLine = static_cast<std::size_t>(-1);

/// Names as they are written first into a card; others that are read are in the table beside it.
[[nodiscard]] std::string_view NameOf(Field field);

/// Line numbers of a card by field, in the card's order.
class CardFields final {
public:
    explicit CardFields(const Card& card);
    [[nodiscard]] const std::vector<std::size_t>& lines(Field field) const {
        return lines_[static_cast<std::size_t>(field)];
    }
    /// kNoLine without one.
    [[nodiscard]] std::size_t first(Field field) const {
        return lines(field).empty() ? kNoLine : lines(field).front();
    }

private:
    std::array<std::vector<std::size_t>, kFieldCount> lines_;
};

/// A telephone or e-mail line, and the line that labels it (or kNoLine).
struct EntryLine {
    std::size_t line = kNoLine, labelLine = kNoLine;
    Entry entry;
    bool labelsOthers = false;  // the label's line is not this entry's alone
};
/// Lines without a value are left out.
[[nodiscard]] std::vector<EntryLine> EntryLinesOf(const Card& card, const CardFields& fields,
                                                  Field field);

struct MemberLine {
    std::size_t line = kNoLine;
    std::string uid;
};
[[nodiscard]] std::vector<MemberLine> MemberLinesOf(const Card& card, const CardFields& fields);

/// Each name once.
[[nodiscard]] std::vector<std::string> CategoriesOf(const Card& card, const CardFields& fields);
/// The parts of the names; at least as many as asked for.
[[nodiscard]] std::vector<std::string> PartsOf(const Card& card, std::size_t line,
                                               std::size_t least);
[[nodiscard]] bool IsGroup(const Card& card, const CardFields& fields);
[[nodiscard]] bool SaysCompany(const Property& property);
/// What a person is shown as when nothing else is said.
[[nodiscard]] std::string DisplayName(const Person& person);
[[nodiscard]] Person PersonOf(const Card& card, const CardFields& fields);
[[nodiscard]] Group GroupOf(const Card& card, const CardFields& fields);

}  // namespace contacts
