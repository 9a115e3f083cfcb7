#include "toolbox/list_model.h"

#include <utility>

#include "toolbox/control_state.h"
#include "toolbox/qt_strings.h"

namespace toolbox {

ListModel::ListModel(QWidget& list) : QAbstractTableModel(&list), list_(list) {}

void ListModel::setTextProc(ListTextProc proc, void* userData) {
    proc_ = proc;
    userData_ = userData;
}

void ListModel::addColumn(OSType column, const QString& title) {
    const int place = columnCount();
    beginInsertColumns({}, place, place);
    columns_.push_back({column, title});
    endInsertColumns();
}

OSType ListModel::columnAt(int place) const {
    return place >= 0 && place < columnCount() ? columns_[static_cast<std::size_t>(place)].type : 0;
}

bool ListModel::addRows(const std::vector<ListItem>& items, Rows& rows) {
    rows.reserve(rows.size() + static_cast<qsizetype>(items.size()));
    for (const ListItem item : items) {
        if (item == 0 || rows.contains(item)) return false;
        rows.insert(item, static_cast<int>(rows.size()));
    }
    return true;
}

bool ListModel::append(const std::vector<ListItem>& items) {
    const int first = rowCount();
    if (!addRows(items, rows_)) {
        rows_.removeIf([first](const Rows::iterator& row) { return row.value() >= first; });
        return false;
    }
    if (items.empty()) return true;
    beginInsertRows({}, first, static_cast<int>(rows_.size()) - 1);
    items_.insert(items_.end(), items.begin(), items.end());
    endInsertRows();
    return true;
}

bool ListModel::replace(const std::vector<ListItem>& items) {
    areItemsGone_ = false;
    Rows rows;
    if (!addRows(items, rows)) return false;
    beginResetModel();
    items_ = items;
    rows_ = std::move(rows);
    endResetModel();
    return true;
}

ListItem ListModel::itemAt(int row) const {
    return row >= 0 && row < rowCount() ? items_[static_cast<std::size_t>(row)] : 0;
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(items_.size());
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ListModel::data(const QModelIndex& cell, int role) const {
    const ListItem item = itemAt(cell.row());
    if (role != Qt::DisplayRole || !proc_ || item == 0 || areItemsGone_) return {};
    const OSType column = columns_[static_cast<std::size_t>(cell.column())].type;
    Owned<CFStringRef> text;
    const OSStatus status = proc_(ToControl(&list_), item, column, text.adopt(), userData_);
    return status == noErr ? ToQString(text) : QString();
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return columns_[static_cast<std::size_t>(section)].title;
}

}  // namespace toolbox
