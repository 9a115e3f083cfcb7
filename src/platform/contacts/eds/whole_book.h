// Every card of the desktop's address book, in portions as its service sends them.
//
// Not asked for in one answer: one larger than the bus allows would end the service.
#pragma once

#include <functional>

#include "contacts/eds/connection.h"

namespace contacts::eds {

/// The card's text, of version 3.0.
[[nodiscard]] std::string TextOf(EContact* contact);

/// With the uid as the service knows it.
using TakeCard = std::function<void(const std::string& uid, const std::string& card)>;
/// On the thread whose context the connection was opened in. Fails, too, when the service goes, or
/// keeps silent for half a minute. `error`: as the service gave it.
Answer ReadWholeBook(const Connection& connection, GCancellable* cancellable, const TakeCard& take,
                     Failure& error);

}  // namespace contacts::eds
