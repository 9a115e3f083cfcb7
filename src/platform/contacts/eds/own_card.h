// Which card is the user's own: a setting of the desktop. (Asking the desktop for the card itself
// would make one where there is none.)
#pragma once

#include <string>

#include "contacts/address_book.h"

namespace contacts::eds {

/// Empty when no card is marked. The settings are installed, as for an open connection.
[[nodiscard]] std::string OwnCardUid();
/// Done once it is stored.
[[nodiscard]] Answer SetOwnCardUid(const std::string& uid);

}  // namespace contacts::eds
