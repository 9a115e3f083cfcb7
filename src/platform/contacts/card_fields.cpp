#include "contacts/card_fields.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>
#include <unordered_set>

#include "contacts/entry_labels.h"

namespace contacts {

namespace {

struct FieldRow {
    std::string_view name;
    Field field;
};
/// The first row of a field is the name that is written.
constexpr FieldRow kFields[] = {
    {"CATEGORIES", Field::categories},
    {"X-EVOLUTION-LIST", Field::contactList},
    {"EMAIL", Field::email},
    {"X-ABLabel", Field::entryLabel},
    {"FN", Field::formattedName},
    {"KIND", Field::kind},
    {"X-ADDRESSBOOKSERVER-KIND", Field::kind},
    {"X-COM-KALMO-MAILBOX", Field::mailbox},
    {"X-ADDRESSBOOKSERVER-MEMBER", Field::member},
    {"MEMBER", Field::member},
    {"N", Field::name},
    {"ORG", Field::organization},
    {"TEL", Field::phone},
    {"REV", Field::revision},
    {"X-ABShowAs", Field::shownAs},
    {"UID", Field::uid},
};
constexpr std::string_view kIdentifierScheme = "urn:uuid:";

std::string TextAt(const Card& card, std::size_t line) {
    return line == kNoLine ? "" : Unescaped(Trimmed(card.property(line).value));
}

std::string IdentifierOf(const std::string& text) {
    return StartsWithoutCase(text, kIdentifierScheme) ? text.substr(kIdentifierScheme.size())
                                                      : text;
}

/// Without the scheme of a URI, and what may follow the number in one.
std::string EntryValue(const Property& property) {
    const std::string text = Unescaped(Trimmed(property.value));
    std::string_view value = text;
    if (StartsWithoutCase(value, "tel:")) value = value.substr(4, value.find(';') - 4);
    if (StartsWithoutCase(value, "mailto:")) value.remove_prefix(7);
    return std::string(Trimmed(value));
}

/// "PREF=1" to "PREF=100" of version 4.0; before that a word among the types.
int RankOf(const Property& property, const std::vector<std::string>& types) {
    if (std::ranges::find(types, "PREF") != types.end()) return 1;
    const std::string_view text = property.parameter("PREF");
    int rank = 0;
    std::from_chars(text.data(), text.data() + text.size(), rank);
    return rank > 0 ? std::min(rank, kNoRank) : kNoRank;
}

struct LabelLine {
    std::size_t line = kNoLine;
    std::size_t labelled = 0;
};

/// The lines X-ABLabel by the group that they label, in upper case.
std::unordered_map<std::string, LabelLine> LabelLines(const Card& card, const CardFields& fields) {
    std::unordered_map<std::string, LabelLine> labels;
    for (const std::size_t line : fields.lines(Field::entryLabel)) {
        labels.emplace(Upper(card.lines()[line].group()), LabelLine{line});
    }
    labels.erase("");
    if (labels.empty()) return labels;
    for (const Card::Line& line : card.lines()) {
        const auto label = labels.find(Upper(line.group()));
        if (label != labels.end()) ++label->second.labelled;
    }
    return labels;
}

std::vector<Entry> EntriesOf(const Card& card, const CardFields& fields, Field field) {
    std::vector<Entry> entries;
    for (EntryLine& it : EntryLinesOf(card, fields, field)) entries.push_back(std::move(it.entry));
    return entries;
}

/// The person's own name where the card has only the one to show. One that repeats another field
/// is there because there is none.
std::string NameToShow(const Person& person) {
    const auto repeats = [&](const Entry& entry) { return entry.value == person.full; };
    const bool isName = !person.isCompany && person.full != person.organization &&
                        std::ranges::none_of(person.phones, repeats) &&
                        std::ranges::none_of(person.emails, repeats);
    return isName ? person.full : "";
}

void ReadNames(const Card& card, const CardFields& fields, Person& person) {
    const std::vector<std::string> parts = PartsOf(card, fields.first(Field::name), 2);
    person.last = Unescaped(Trimmed(parts[0]));
    person.first = Unescaped(Trimmed(parts[1]));
    if (person.full.empty()) person.full = DisplayName(person);
    const bool nameless =
        std::ranges::all_of(parts, [](const std::string& part) { return Trimmed(part).empty(); });
    if (nameless) person.first = NameToShow(person);
}

}  // namespace

std::string_view NameOf(Field field) {
    return std::ranges::find(kFields, field, &FieldRow::field)->name;
}

CardFields::CardFields(const Card& card) {
    for (std::size_t i = 0; i < card.lines().size(); ++i) {
        const std::string_view name = card.lines()[i].name();
        const auto row = std::ranges::find_if(
            kFields, [&](const FieldRow& it) { return EqualWithoutCase(it.name, name); });
        if (row != std::end(kFields)) lines_[static_cast<std::size_t>(row->field)].push_back(i);
    }
}

std::vector<EntryLine> EntryLinesOf(const Card& card, const CardFields& fields, Field field) {
    const auto labels = LabelLines(card, fields);
    std::vector<EntryLine> lines;
    for (const std::size_t line : fields.lines(field)) {
        const Property property = card.property(line);
        const std::vector<std::string> types = property.types();
        EntryLine found{line,
                        kNoLine,
                        {.label = LabelOfTypes(types),
                         .value = EntryValue(property),
                         .rank = RankOf(property, types)}};
        if (found.entry.value.empty()) continue;
        const auto label = labels.find(Upper(property.group));
        if (label != labels.end()) {
            found.labelLine = label->second.line;
            found.labelsOthers = label->second.labelled > 2;  // the label itself is one
            ReadLabelText(TextAt(card, found.labelLine), found.entry);
        }
        lines.push_back(std::move(found));
    }
    return lines;
}

std::vector<MemberLine> MemberLinesOf(const Card& card, const CardFields& fields) {
    std::vector<MemberLine> members;
    const auto add = [&](std::size_t line, std::string uid) {
        if (!uid.empty()) members.push_back({line, std::move(uid)});
    };
    for (const std::size_t line : fields.lines(Field::member)) {
        add(line, IdentifierOf(TextAt(card, line)));
    }
    for (const std::size_t line : fields.lines(Field::email)) {
        add(line, std::string(card.property(line).parameter("X-EVOLUTION-DEST-CONTACT-UID")));
    }
    return members;
}

std::vector<std::string> CategoriesOf(const Card& card, const CardFields& fields) {
    std::vector<std::string> names;
    std::unordered_set<std::string> seen;
    for (const std::size_t line : fields.lines(Field::categories)) {
        for (const std::string& part : SplitAt(',', card.property(line).value)) {
            std::string name = Unescaped(Trimmed(part));
            if (!name.empty() && seen.insert(name).second) names.push_back(std::move(name));
        }
    }
    return names;
}

std::vector<std::string> PartsOf(const Card& card, std::size_t line, std::size_t least) {
    std::vector<std::string> parts;
    if (line != kNoLine) parts = SplitAt(';', card.property(line).value);
    if (parts.size() < least) parts.resize(least);
    return parts;
}

bool IsGroup(const Card& card, const CardFields& fields) {
    const auto says = [&](std::string_view word) {
        return
            [&card, word](std::size_t line) { return EqualWithoutCase(TextAt(card, line), word); };
    };
    return std::ranges::any_of(fields.lines(Field::kind), says("group")) ||
           std::ranges::any_of(fields.lines(Field::contactList), says("TRUE"));
}

bool SaysCompany(const Property& property) {
    const std::string_view value = Trimmed(property.value);
    return EqualWithoutCase(value, "org") || EqualWithoutCase(value, "COMPANY");
}

std::string DisplayName(const Person& person) {
    const bool both = !person.first.empty() && !person.last.empty();
    std::string name = person.first + (both ? " " : "") + person.last;
    if (!name.empty() && !(person.isCompany && !person.organization.empty())) return name;
    if (!person.organization.empty()) return person.organization;
    if (!person.emails.empty()) return person.emails.front().value;
    return person.phones.empty() ? "" : person.phones.front().value;
}

Person PersonOf(const Card& card, const CardFields& fields) {
    Person person;
    const auto says = [&](std::size_t line) { return SaysCompany(card.property(line)); };
    person.uid = IdentifierOf(TextAt(card, fields.first(Field::uid)));
    person.revision = TextAt(card, fields.first(Field::revision));
    person.full = TextAt(card, fields.first(Field::formattedName));
    person.mailbox = TextAt(card, fields.first(Field::mailbox));
    person.organization =
        Unescaped(Trimmed(PartsOf(card, fields.first(Field::organization), 1)[0]));
    person.isCompany = std::ranges::any_of(fields.lines(Field::kind), says) ||
                       std::ranges::any_of(fields.lines(Field::shownAs), says);
    if (person.isCompany && person.organization.empty()) person.organization = person.full;
    person.phones = EntriesOf(card, fields, Field::phone);
    person.emails = EntriesOf(card, fields, Field::email);
    person.groups = CategoriesOf(card, fields);
    ReadNames(card, fields, person);
    return person;
}

Group GroupOf(const Card& card, const CardFields& fields) {
    Group group;
    group.uid = IdentifierOf(TextAt(card, fields.first(Field::uid)));
    group.revision = TextAt(card, fields.first(Field::revision));
    group.name = TextAt(card, fields.first(Field::formattedName));
    if (group.name.empty()) group.name = Unescaped(PartsOf(card, fields.first(Field::name), 1)[0]);
    std::unordered_set<std::string> seen;
    for (MemberLine& member : MemberLinesOf(card, fields)) {
        if (seen.insert(member.uid).second) group.members.push_back(std::move(member.uid));
    }
    return group;
}

}  // namespace contacts
