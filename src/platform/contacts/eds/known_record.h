// Records with revisions that tell two writers of one second apart.
#pragma once

#include "contacts/card_mapping.h"

namespace contacts::eds {

/// ReadCard with more of a revision: a card's own one has seconds only, and its text cannot help,
/// since the service gives it with parameters in one order or another. So what it says is added.
/// The uid is the service's own word: it may be a URN, which a card's reader takes apart.
[[nodiscard]] std::optional<Record> ReadKnownRecord(const std::string& uid,
                                                    const std::string& card);

}  // namespace contacts::eds
