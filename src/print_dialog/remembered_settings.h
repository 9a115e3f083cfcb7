// What the user has chosen in the window for this and later starts.
//
// It stands in window.conf in the user's folder for kalmo-print (~/.config/kalmo-print): "panels",
// "windowSize", "source" and "folder" of the group "addressBook", and "favorites" and "recent" of
// the group "printers", which hold names of queues. What the file holds besides is kept; values
// that nobody knows are passed over. Each file is replaced whole or not at all.
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

/// What the user has made of the window; empty when nothing or nothing sensible.
[[nodiscard]] QSize RememberedWindowSize();
void RememberWindowSize(const QSize& size);

/// A folder that is no absolute path is none. Any thread.
[[nodiscard]] contacts::Settings RememberedAddressBook();
Outcome RememberAddressBook(const contacts::Settings& settings);

struct PrinterMarks {
    std::vector<std::string> favorites;
    std::vector<std::string> recent;  // the newest first, at most kRecentPrinters
};
inline constexpr std::size_t kRecentPrinters = 5;

[[nodiscard]] PrinterMarks RememberedPrinters();
/// Adds the queue to the favorites, or takes it out.
Outcome RememberFavorite(const std::string& queue, bool isFavorite);
/// The queue is now the newest of those that were printed on.
void RememberPrinter(const std::string& queue);

}  // namespace kalmo
