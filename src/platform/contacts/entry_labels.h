// What an entry is for, as TYPE words and as the label's text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "contacts/person.h"
#include "contacts/vcard.h"

namespace contacts {

[[nodiscard]] Label LabelOfTypes(const std::vector<std::string>& upperTypes);
/// `text` is that of the line X-ABLabel: one of the labels (in brackets, or its type), or the
/// user's own word.
void ReadLabelText(std::string_view text, Entry& entry);

/// Replaces the words that say what the entry is for, and leaves the others.
void SetLabelTypes(Property& property, Version version, Label label);
/// The label as it can be stored: no comma (programs split there), not blank.
[[nodiscard]] Entry WithStorableLabel(Entry entry);

}  // namespace contacts
