// What a module for a desktop's address book offers to the program, which loads it when asked for.
#pragma once

#include <chrono>

#include "contacts/address_book.h"

namespace contacts {

/// Beside libkalmoplatform.
inline constexpr const char* kDesktopModule = "kalmo-contacts-eds.so";

/// Exported by the module with C linkage. Gives a book that the caller owns, or null and why. All
/// calls of the book, this one and its destruction come from one thread. They may hang for half a
/// minute whatever their stop says, and throw nothing.
using OpenModuleBook = AddressBook*(const std::stop_token& stop, Answer& why);
inline constexpr const char* kOpenModuleBook = "KalmoOpenDesktopBook";

/// OpenDesktop for those who wait no longer than this: timedOut then, and what comes later is
/// dropped.
[[nodiscard]] std::shared_ptr<AddressBook> OpenDesktopWithin(std::chrono::milliseconds limit,
                                                             const std::stop_token& stop,
                                                             Answer& why);

}  // namespace contacts
