// Edits of a card, line by line: what already says the same stays as it stands.
#pragma once

#include "contacts/card_fields.h"
#include "contacts/card_mapping.h"

namespace contacts {

class CardEdit final {
public:
    explicit CardEdit(Card& card) : card_(card), fields_(card) {}
    [[nodiscard]] const CardFields& fields() const { return fields_; }

    /// An empty text removes the field's lines.
    void setText(Field field, std::string_view text);
    /// Parts of the name or the organization, from the first on; the others stay.
    void setParts(Field field, const std::vector<std::string>& parts);
    void setCompany(bool isCompany);
    void setEntries(Field field, const std::vector<Entry>& wanted);
    void setCategories(const std::vector<std::string>& wanted);
    void setMembers(const std::vector<std::string>& wanted, const MemberAddress& addressOf);
    /// Now, where the card has a revision or is new.
    void renewRevision(bool isNew);
    void add(Field field, std::string_view text);

private:
    void addLine(Field field, const Property& property);
    void removeAll(const std::vector<std::size_t>& lines);
    void writeEntry(const EntryLine& stored, const Entry& wanted);
    void addEntry(Field field, const Entry& wanted, std::size_t behind);
    void addLabel(const std::string& group, const Entry& entry, std::size_t behind);
    /// As the card names its other members.
    [[nodiscard]] Property newMember() const;
    void addMember(Property member, const std::string& uid, const MemberAddress& addressOf);
    std::string freshGroup();
    [[nodiscard]] std::string escaped(std::string_view text) const {
        return Escaped(text, card_.version());
    }

    Card& card_;
    CardFields fields_;
    std::size_t lastGroup_ = 0;  // of those named item1, item2 ...; 0: not counted yet
};

}  // namespace contacts
