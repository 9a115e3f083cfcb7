#include "print_dialog/destination_model.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <unordered_set>

#include "print_dialog/destination_order.h"
#include "print_dialog/window_texts.h"
#include "toolbox/qt_strings.h"

namespace kalmo {
namespace {

Destination FolderDestination() {
    return {Destination::Kind::folder, {}, WindowText("Save to folder"), {}, {}, {}};
}

}  // namespace

DestinationModel::DestinationModel(QObject* parent) : QAbstractListModel(parent) {
    setQueues({}, {});
}

void DestinationModel::setQueues(std::vector<Destination> queues, const PrinterMarks& marks) {
    destinations_ = std::move(queues);
    destinations_.push_back(FolderDestination());
    recent_ = marks.recent;
    const std::unordered_set<std::string> favorites(marks.favorites.begin(), marks.favorites.end());
    isFavorite_.assign(destinations_.size(), false);
    for (std::size_t i = 0; i + 1 < destinations_.size(); ++i) {
        isFavorite_[i] = favorites.contains(destinations_[i].queue);
    }
    arrange();
}

void DestinationModel::arrange() {
    std::unordered_map<std::string, std::size_t> age;
    for (const std::string& queue : recent_) age.try_emplace(queue, age.size());
    groups_.assign(destinations_.size(), Group::other);
    groups_.back() = Group::folder;
    std::vector<std::size_t> ages(destinations_.size(), 0);
    for (std::size_t i = 0; i + 1 < destinations_.size(); ++i) {
        const auto found = age.find(destinations_[i].queue);
        if (isFavorite_[i]) {
            groups_[i] = Group::favorite;
        } else if (found != age.end()) {
            groups_[i] = Group::recent;
            ages[i] = found->second;
        }
    }
    arranged_.resize(destinations_.size());
    std::iota(arranged_.begin(), arranged_.end(), 0);
    std::ranges::stable_sort(arranged_, {}, [&](int i) { return std::pair(groups_[i], ages[i]); });
    showFound();
}

void DestinationModel::setSearch(const QString& typed) {
    if (typed == search_) return;
    search_ = typed;
    showFound();
}

void DestinationModel::showFound() {
    const QStringList words = SearchWords(search_);
    beginResetModel();
    rows_.clear();
    std::ranges::copy_if(arranged_, std::back_inserter(rows_), [&](int i) {
        return groupOf(i) == Group::folder || Matches(destinations_[i], words);
    });
    endResetModel();
}

void DestinationModel::setFavorite(int row, bool isFavorite) {
    if (groupOf(destinationAt(row)) == Group::folder) return;
    isFavorite_[destinationAt(row)] = isFavorite;
    Q_EMIT dataChanged(index(row), index(row));
}

int DestinationModel::rowOf(int destination) const {
    const auto found = std::ranges::find(rows_, destination);
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

std::vector<int> DestinationModel::marked() const {
    std::vector<int> marked;
    std::ranges::copy_if(arranged_, std::back_inserter(marked),
                         [this](int i) { return groupOf(i) < Group::other; });
    return marked;
}

int DestinationModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QString DestinationModel::spoken(int row) const {
    QStringList parts{at(row).text};
    if (isFavorite_[destinationAt(row)]) parts.append(WindowText("Favorite printer"));
    if (groupOf(destinationAt(row)) == Group::recent) parts.append(WindowText("Recent printer"));
    return parts.join(", ");
}

QVariant DestinationModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const int row = index.row();
    const Group group = groupOf(destinationAt(row));
    switch (role) {
        case Qt::DisplayRole:
            return at(row).text;
        case Qt::ToolTipRole:
            return toolbox::AsPlainText(at(row).tip);
        case Qt::AccessibleTextRole:
            return spoken(row);
        case Qt::AccessibleDescriptionRole:
        case kStatusRole:
            return at(row).status;
        case kFavoriteRole:
            return group == Group::folder ? QVariant() : QVariant(isFavorite_[destinationAt(row)]);
        case kRecentRole:
            return group == Group::recent;
        case kStartsGroupRole:
            return row > 0 && groupOf(destinationAt(row - 1)) != group;
        default:
            return {};
    }
}

}  // namespace kalmo
