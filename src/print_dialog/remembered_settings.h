// What the user has chosen in the window for this and later starts.
//
// It stands in window.conf in the user's folder for kalmo-print (~/.config/kalmo-print): "panels",
// "printer", "windowSize", and "source" and "folder" of the group "addressBook". What the file
// holds besides is kept; values that nobody knows are passed over. Each file is replaced whole or
// not at all.
#pragma once

#include <QSize>
#include <string>
#include <vector>

#include "contacts/address_book.h"
#include "print_dialog/outcome.h"

namespace kalmo {

/// Names as in --panels. Without a readable file there are none.
[[nodiscard]] std::vector<std::string> RememberedPanels();
Outcome RememberPanels(const std::vector<std::string>& panels);

/// The queue that was printed on last; empty without one.
[[nodiscard]] std::string RememberedPrinter();
void RememberPrinter(const std::string& queue);

/// What the user has made of the window; empty when nothing or nothing sensible.
[[nodiscard]] QSize RememberedWindowSize();
void RememberWindowSize(const QSize& size);

/// A folder that is no absolute path is none. Any thread.
[[nodiscard]] contacts::Settings RememberedAddressBook();
Outcome RememberAddressBook(const contacts::Settings& settings);

}  // namespace kalmo
