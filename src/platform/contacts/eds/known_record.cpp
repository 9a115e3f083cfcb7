#include "contacts/eds/known_record.h"

namespace contacts::eds {
namespace {

using Texts = std::vector<std::string>;

void Append(Texts& said, const std::vector<Entry>& entries) {
    for (const Entry& entry : entries)
        said.insert(said.end(), {std::to_string(static_cast<int>(entry.label)), entry.value,
                                 entry.customLabel});
    said.emplace_back();
}

Texts Said(const Person& person) {
    Texts said = person.groups;
    said.insert(said.end(), {person.first, person.last, person.full, person.organization,
                             person.mailbox, person.isCompany ? "company" : ""});
    Append(said, person.phones);
    Append(said, person.emails);
    return said;
}

Texts Said(const Group& group) {
    Texts said = group.members;
    said.push_back(group.name);
    return said;
}

}  // namespace

std::optional<Record> ReadKnownRecord(const std::string& uid, const std::string& card) {
    std::optional<Record> record = ReadCard(card);
    const auto know = [&uid](auto& known) {
        known.uid = uid;
        std::string all;
        for (const std::string& text : Said(known)) all.append(text).push_back('\0');
        known.revision += '-' + std::to_string(std::hash<std::string>{}(all));
    };
    if (record) std::visit(know, *record);
    return record;
}

}  // namespace contacts::eds
