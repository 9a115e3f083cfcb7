// How printers are ordered and found. For every thread: workers prepare what they fetched, so that
// the list of thousands is only put on the screen by the thread that shows it.
#pragma once

#include <QStringList>
#include <vector>

#include "print_dialog/destination.h"

namespace kalmo {

struct PrinterEntry;

/// Rows for the queues as the user's language sorts them, "Room 9" before "Room 10". Of queues that
/// share one description, each shows its name as well.
[[nodiscard]] std::vector<Destination> ArrangedDestinations(
    const std::vector<PrinterEntry>& printers);

/// Without case and accents, "Büro" as "buro".
[[nodiscard]] QString FoldedForSearch(const QString& text);

/// Any of the printers' words begin or contain each of these, in any order.
[[nodiscard]] QStringList SearchWords(const QString& typed);
[[nodiscard]] bool Matches(const Destination& destination, const QStringList& words);

}  // namespace kalmo
