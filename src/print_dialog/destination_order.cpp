#include "print_dialog/destination_order.h"

#include <QCollator>
#include <QLocale>
#include <algorithm>
#include <numeric>
#include <tuple>

#include "foundation/bundle.h"
#include "print_dialog/printers.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

QString ShownName(const PrinterEntry& printer) {
    return QString::fromStdString(printer.info.empty() ? printer.name : printer.info);
}

QString ShownStatus(const PrinterEntry& printer) {
    const QString message = QString::fromStdString(printer.stateMessage);
    if (!printer.accepting) return WindowText("Printer refuses jobs");
    if (printer.stopped && message.isEmpty()) return WindowText("Printer stopped");
    if (printer.stopped) return WindowText("Printer stopped because", {message});
    if (!message.isEmpty()) return message;
    return QString::fromStdString(printer.location.empty() ? printer.makeAndModel
                                                           : printer.location);
}

Destination RowOf(const PrinterEntry& printer) {
    QStringList all{ShownName(printer).simplified(), QString::fromStdString(printer.name),
                    QString::fromStdString(printer.location),
                    QString::fromStdString(printer.makeAndModel)};
    Destination row{.kind = Destination::Kind::queue,
                    .queue = printer.name,
                    .text = all.front(),
                    .status = ShownStatus(printer).simplified(),
                    .folded = FoldedForSearch(all.join('\n'))};
    all.append(row.status);
    all.removeAll(QString());
    all.removeDuplicates();
    row.tip = all.join('\n');
    return row;
}

/// One that knows numbers, in every locale; that of "C" knows only bytes.
QCollator CollatorOfUser() {
    QCollator collator(QLocale(QString::fromStdString(PreferredLanguages().front())));
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator;
}

void Sort(std::vector<Destination>& rows) {
    const QCollator collator = CollatorOfUser();
    std::vector<QCollatorSortKey> keys;
    keys.reserve(rows.size());
    for (const Destination& row : rows) keys.push_back(collator.sortKey(row.text));
    std::vector<std::size_t> order(rows.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, [&](std::size_t a, std::size_t b) {
        const int compared = keys[a].compare(keys[b]);
        return compared != 0
                   ? compared < 0
                   : std::tie(rows[a].text, rows[a].queue) < std::tie(rows[b].text, rows[b].queue);
    });
    std::vector<Destination> sorted;
    sorted.reserve(rows.size());
    for (const std::size_t at : order) sorted.push_back(std::move(rows[at]));
    rows = std::move(sorted);
}

void TellAlikeApart(std::vector<Destination>& rows) {
    for (auto first = rows.begin(); first != rows.end();) {
        const auto last = std::find_if(first, rows.end(), [&first](const Destination& row) {
            return row.text != first->text;
        });
        if (last - first > 1) {
            std::for_each(first, last, [](Destination& row) {
                row.text += " (" + QString::fromStdString(row.queue) + ')';
            });
        }
        first = last;
    }
}

}  // namespace

std::vector<Destination> ArrangedDestinations(const std::vector<PrinterEntry>& printers) {
    std::vector<Destination> rows;
    rows.reserve(printers.size());
    std::ranges::transform(printers, std::back_inserter(rows), RowOf);
    Sort(rows);
    TellAlikeApart(rows);
    return rows;
}

QString FoldedForSearch(const QString& text) {
    // Upper case has what folding one letter at a time leaves alone: "ß" is "SS".
    QString folded = text.normalized(QString::NormalizationForm_KD).toUpper().toCaseFolded();
    folded.removeIf([](QChar c) { return c.category() == QChar::Mark_NonSpacing; });
    return folded;
}

QStringList SearchWords(const QString& typed) {
    return FoldedForSearch(typed).simplified().split(' ', Qt::SkipEmptyParts);
}

bool Matches(const Destination& destination, const QStringList& words) {
    return std::ranges::all_of(
        words, [&](const QString& word) { return destination.folded.contains(word); });
}

}  // namespace kalmo
