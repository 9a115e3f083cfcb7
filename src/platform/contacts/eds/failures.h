// What the desktop's errors mean to us. Their own texts may name contacts, and stay here.
#pragma once

#include <gio/gio.h>

#include "contacts/address_book.h"

namespace contacts::eds {

/// `doing`: what failed, as in "loading the contacts". A null error is a failure without a reason.
[[nodiscard]] Answer AnswerTo(const GError* error, const char* doing);
/// The service is gone, and a new connection may start it again.
[[nodiscard]] bool IsLinkLost(const GError* error);

}  // namespace contacts::eds
