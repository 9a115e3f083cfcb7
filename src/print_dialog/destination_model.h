// The rows of the list of printers: favorites, those printed on last, all others, and at the end
// the folder, which no search takes away.
#pragma once

#include <QAbstractListModel>
#include <vector>

#include "print_dialog/destination.h"
#include "print_dialog/remembered_settings.h"

namespace kalmo {

class DestinationModel final : public QAbstractListModel {
    Q_OBJECT
public:
    enum class Group { favorite, recent, other, folder };
    /// Beside text (display), tool tip and the texts for assistive technology.
    enum Role {
        kStatusRole = Qt::UserRole,  // QString, the second line
        kFavoriteRole,               // bool; not for the folder, which is none
        kRecentRole,                 // bool
        kStartsGroupRole,            // bool: first of a group, but not the first row
    };

    explicit DestinationModel(QObject* parent = nullptr);

    /// In the order of the user's language; the folder is added. The search stays.
    void setQueues(std::vector<Destination> queues, const PrinterMarks& marks);
    /// Shows the rows that hold all words of `typed`.
    void setSearch(const QString& typed);
    /// Brings the marks given since the last time to the front.
    void arrange();
    /// Gives or takes the mark; the row stays where it is until arrange().
    void setFavorite(int row, bool isFavorite);

    /// All, as they were given, the folder last.
    [[nodiscard]] const std::vector<Destination>& destinations() const { return destinations_; }
    /// An index in destinations(); the row must be there.
    [[nodiscard]] int destinationAt(int row) const { return rows_[row]; }
    /// -1 when the search has taken it away.
    [[nodiscard]] int rowOf(int destination) const;
    [[nodiscard]] int queueCount() const { return static_cast<int>(destinations_.size()) - 1; }
    /// Indices of the marked ones, in the order of the rows.
    [[nodiscard]] std::vector<int> marked() const;
    [[nodiscard]] const std::vector<int>& arranged() const { return arranged_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    [[nodiscard]] Group groupOf(int destination) const { return groups_[destination]; }
    [[nodiscard]] const Destination& at(int row) const { return destinations_[rows_[row]]; }
    [[nodiscard]] QString spoken(int row) const;
    void showFound();

    std::vector<Destination> destinations_;
    std::vector<std::string> recent_;
    // By index in destinations_.
    std::vector<bool> isFavorite_;
    std::vector<Group> groups_;
    // Of indices in destinations_.
    std::vector<int> arranged_, rows_;
    QString search_;
};

}  // namespace kalmo
