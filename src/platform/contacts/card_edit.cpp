#include "contacts/card_edit.h"

#include <algorithm>
#include <charconv>
#include <ctime>
#include <unordered_map>
#include <unordered_set>

#include "contacts/entry_labels.h"

namespace contacts {

namespace {

constexpr std::string_view kNumberedGroup = "item";
constexpr std::string_view kMemberParameter = "X-EVOLUTION-DEST-CONTACT-UID";

Property NewProperty(Field field) {
    Property property;
    property.name = NameOf(field);
    return property;
}

std::string KeyOf(const Entry& entry) {
    return std::to_string(static_cast<int>(entry.label)) + entry.customLabel + '\0' + entry.value;
}

/// For each wanted entry the stored one whose line it takes, or kNoLine. Those that say the same
/// keep their line; between them the lines are used up in order. Both stay in order.
class Places final {
public:
    Places(const std::vector<EntryLine>& stored, const std::vector<Entry>& wanted)
        : places(wanted.size(), kNoLine) {
        for (std::size_t i = 0; i < stored.size(); ++i) {
            positions_[KeyOf(stored[i].entry)].push_back(i);
        }
        for (std::size_t i = 0; i < wanted.size(); ++i) takeSame(i, wanted[i]);
        useUp(wanted.size(), stored.size());
    }

private:
    void takeSame(std::size_t index, const Entry& entry) {
        const auto same = positions_.find(KeyOf(entry));
        if (same == positions_.end()) return;
        const auto position = std::ranges::lower_bound(same->second, nextStored_);
        if (position == same->second.end()) return;
        useUp(index, *position);
        places[index] = *position;
        nextWanted_ = index + 1;
        nextStored_ = *position + 1;
    }
    /// The ones before these two are other ones: each takes a line while there are some.
    void useUp(std::size_t endWanted, std::size_t endStored) {
        while (nextWanted_ < endWanted && nextStored_ < endStored) {
            places[nextWanted_++] = nextStored_++;
        }
    }

    std::unordered_map<std::string, std::vector<std::size_t>> positions_;
    std::size_t nextWanted_ = 0, nextStored_ = 0;

public:
    std::vector<std::size_t> places;
};

std::string Now(Version version) {
    const std::time_t now = std::time(nullptr);
    std::tm time{};
    gmtime_r(&now, &time);
    char text[32];
    const char* const format = version == Version::v40 ? "%Y%m%dT%H%M%SZ" : "%Y-%m-%dT%H:%M:%SZ";
    return {text, std::strftime(text, sizeof text, format, &time)};
}

/// The number of "item12"; 0 for any other group.
std::size_t NumberOf(std::string_view group) {
    std::size_t number = 0;
    if (!StartsWithoutCase(group, kNumberedGroup)) return 0;
    group.remove_prefix(kNumberedGroup.size());
    const auto result = std::from_chars(group.data(), group.data() + group.size(), number);
    // A number that could not be counted on from is only a name.
    return result.ec == std::errc() && number < kLargestCard ? number : 0;
}

}  // namespace

void CardEdit::addLine(Field field, const Property& property) {
    const std::vector<std::size_t>& lines = fields_.lines(field);
    card_.addBehind(lines.empty() ? card_.lastLine() : lines.back(), property);
}

void CardEdit::add(Field field, std::string_view text) {
    Property property = NewProperty(field);
    property.value = escaped(text);
    addLine(field, property);
}

void CardEdit::removeAll(const std::vector<std::size_t>& lines) {
    for (const std::size_t line : lines) card_.remove(line);
}

void CardEdit::setText(Field field, std::string_view text) {
    const std::size_t line = fields_.first(field);
    if (text.empty()) return removeAll(fields_.lines(field));
    if (line == kNoLine) return add(field, text);
    Property property = card_.property(line);
    property.value = escaped(text);
    card_.replace(line, property);
}

void CardEdit::setParts(Field field, const std::vector<std::string>& parts) {
    const std::size_t line = fields_.first(field);
    std::vector<std::string> all = PartsOf(card_, line, parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i) all[i] = escaped(parts[i]);
    const bool empty = std::ranges::all_of(all, &std::string::empty);
    if (empty && field == Field::organization) return removeAll(fields_.lines(field));
    if (field == Field::name && all.size() < 5) all.resize(5);
    const std::string joined = Joined(all, ';');
    Property property = line == kNoLine ? NewProperty(field) : card_.property(line);
    if (joined == property.value) return;
    property.value = joined;
    if (line == kNoLine) return addLine(field, property);
    card_.replace(line, property);
}

void CardEdit::setCompany(bool isCompany) {
    for (const Field field : {Field::kind, Field::shownAs}) {
        const std::string_view word = field == Field::kind ? "org" : "COMPANY";
        if (isCompany) {
            setText(field, word);
            continue;
        }
        for (const std::size_t line : fields_.lines(field)) {
            if (SaysCompany(card_.property(line))) card_.remove(line);
        }
    }
}

std::string CardEdit::freshGroup() {
    if (lastGroup_ == 0) {
        for (const Card::Line& line : card_.lines()) {
            lastGroup_ = std::max(lastGroup_, NumberOf(line.group()));
        }
    }
    return std::string(kNumberedGroup) + std::to_string(++lastGroup_);
}

void CardEdit::addLabel(const std::string& group, const Entry& entry, std::size_t behind) {
    Property label = NewProperty(Field::entryLabel);
    label.group = group;
    label.value = escaped(entry.customLabel);
    card_.addBehind(behind, label);
}

void CardEdit::addEntry(Field field, const Entry& wanted, std::size_t behind) {
    Property property = NewProperty(field);
    property.value = escaped(wanted.value);
    SetLabelTypes(property, card_.version(), wanted.label);
    const bool custom = wanted.label == Label::custom;
    if (custom) property.group = freshGroup();
    card_.addBehind(behind, property);
    if (custom) addLabel(property.group, wanted, behind);
}

void CardEdit::writeEntry(const EntryLine& stored, const Entry& wanted) {
    Property property = card_.property(stored.line);
    if (stored.entry.value != wanted.value) {
        property.value = escaped(wanted.value);
        property.removeParameter("VALUE");
        property.removeParameter("X-EVOLUTION-E164");  // it repeats the old number
    }
    const bool relabelled =
        stored.entry.label != wanted.label || stored.entry.customLabel != wanted.customLabel;
    const Entry storable = WithStorableLabel(wanted);
    const bool labelled = relabelled && storable.label == Label::custom;
    if (relabelled) {
        const bool ownLabel = stored.labelLine != kNoLine && !stored.labelsOthers;
        SetLabelTypes(property, card_.version(), storable.label);
        if (ownLabel) card_.remove(stored.labelLine);
        // Others in its group would get the label, too.
        if (stored.labelsOthers) property.group.clear();
        if (labelled && !ownLabel) property.group = freshGroup();
    }
    card_.replace(stored.line, property);
    if (labelled) addLabel(property.group, storable, stored.line);
}

void CardEdit::setEntries(Field field, const std::vector<Entry>& wanted) {
    const std::vector<EntryLine> stored = EntryLinesOf(card_, fields_, field);
    const std::vector<std::size_t> places = Places(stored, wanted).places;
    std::vector<bool> used(stored.size());
    // What comes first stands before the others, what has no other stands at the end.
    std::size_t behind = stored.empty() ? card_.lastLine() : stored.front().line - 1;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const bool empty = wanted[i].value.empty();
        if (places[i] == kNoLine) {
            if (!empty) addEntry(field, WithStorableLabel(wanted[i]), behind);
            continue;
        }
        const EntryLine& place = stored[places[i]];
        if (place.entry != wanted[i]) writeEntry(place, wanted[i]);
        used[places[i]] = !empty;
        behind = place.line;
    }
    for (std::size_t i = 0; i < stored.size(); ++i) {
        if (used[i]) continue;
        card_.remove(stored[i].line);
        if (stored[i].labelLine != kNoLine && !stored[i].labelsOthers) {
            card_.remove(stored[i].labelLine);
        }
    }
}

void CardEdit::setCategories(const std::vector<std::string>& wanted) {
    const std::unordered_set<std::string> all(wanted.begin(), wanted.end());
    const std::vector<std::string> stored = CategoriesOf(card_, fields_);
    std::unordered_set<std::string> seen(stored.begin(), stored.end());
    std::vector<std::string> added;
    for (const std::string& name : wanted) {
        if (!name.empty() && seen.insert(name).second) added.push_back(escaped(name));
    }
    for (const std::size_t line : fields_.lines(Field::categories)) {
        Property property = card_.property(line);
        std::vector<std::string> parts = SplitAt(',', property.value);
        std::erase_if(parts, [&](const std::string& part) {
            return !all.contains(Unescaped(Trimmed(part)));
        });
        // Some programs read the first line only.
        std::ranges::move(added, std::back_inserter(parts));
        added.clear();
        const std::string value = Joined(parts, ',');
        if (value.empty()) card_.remove(line);
        if (value.empty() || value == property.value) continue;
        property.value = value;
        card_.replace(line, property);
    }
    if (added.empty()) return;
    Property property = NewProperty(Field::categories);
    property.value = Joined(added, ',');
    addLine(Field::categories, property);
}

Property CardEdit::newMember() const {
    if (fields_.first(Field::contactList) != kNoLine) return NewProperty(Field::email);
    Property property = NewProperty(Field::member);
    const std::size_t other = fields_.first(Field::member);
    if (card_.version() == Version::v40) property.name = "MEMBER";
    if (other != kNoLine) property.name = card_.lines()[other].name();
    return property;
}

void CardEdit::addMember(Property member, const std::string& uid, const MemberAddress& addressOf) {
    const bool listed = fields_.first(Field::contactList) != kNoLine;
    if (listed) member.setParameter(kMemberParameter, {uid});
    member.value = escaped(!listed ? "urn:uuid:" + uid : addressOf ? addressOf(uid) : "");
    addLine(listed ? Field::email : Field::member, member);
}

void CardEdit::setMembers(const std::vector<std::string>& wanted, const MemberAddress& addressOf) {
    const Property newMember = this->newMember();
    std::unordered_set<std::string> missing(wanted.begin(), wanted.end());
    const std::unordered_set<std::string> all = missing;
    for (const MemberLine& member : MemberLinesOf(card_, fields_)) {
        missing.erase(member.uid);
        if (!all.contains(member.uid)) card_.remove(member.line);
    }
    for (const std::string& uid : wanted) {
        if (missing.erase(uid) > 0 && !uid.empty()) addMember(newMember, uid, addressOf);
    }
}

void CardEdit::renewRevision(bool isNew) {
    if (!isNew && fields_.first(Field::revision) == kNoLine) return;
    setText(Field::revision, Now(card_.version()));
}

}  // namespace contacts
