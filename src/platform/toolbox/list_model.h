// The items and columns of a list. A text is asked for each time it is shown and kept nowhere.
#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <vector>

#include "toolbox/list_view.h"

namespace toolbox {

class ListModel final : public QAbstractTableModel {
public:
    explicit ListModel(QWidget& list);

    void setTextProc(ListTextProc proc, void* userData);
    void addColumn(OSType column, const QString& title);
    /// 0 outside.
    [[nodiscard]] OSType columnAt(int place) const;

    /// False, and nothing changes, when an item is 0, twice among them, or already there.
    [[nodiscard]] bool append(const std::vector<ListItem>& items);
    /// The items may be gone already: no texts are asked for until others take their place.
    void letItemsGo() { areItemsGone_ = true; }
    /// Resets the model. False, and nothing changes, when an item is 0 or twice among them.
    [[nodiscard]] bool replace(const std::vector<ListItem>& items);

    [[nodiscard]] const std::vector<ListItem>& items() const { return items_; }
    /// 0 outside.
    [[nodiscard]] ListItem itemAt(int row) const;
    /// -1 when it is not there.
    [[nodiscard]] int rowOf(ListItem item) const { return rows_.value(item, -1); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& cell, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    struct Column {
        OSType type;
        QString title;
    };
    using Rows = QHash<ListItem, int>;

    [[nodiscard]] static bool addRows(const std::vector<ListItem>& items, Rows& rows);

    QWidget& list_;
    ListTextProc proc_ = nullptr;
    void* userData_ = nullptr;
    std::vector<Column> columns_;
    std::vector<ListItem> items_;
    Rows rows_;
    bool areItemsGone_ = false;
};

}  // namespace toolbox
