// A list whose rows the user selects, in an order that is kept, and opens.
#pragma once

#include <QTreeView>

#include "toolbox/list_model.h"

namespace toolbox {

/// Keys first go out as raw keys. Letters search nothing: to search would ask for every text.
class ListView final : public QTreeView {
    Q_OBJECT

public:
    explicit ListView(QWidget* parent = nullptr);

    [[nodiscard]] ListModel& items() const { return *model_; }
    void addColumn(OSType column, const QString& title, int width);
    void setSelectsMany(bool many);
    void setSortable(bool sortable);
    [[nodiscard]] ListSort sort() const;
    /// False, and nothing changes, for items that a list cannot have.
    [[nodiscard]] bool setItems(const std::vector<ListItem>& items);

    [[nodiscard]] const std::vector<ListItem>& selectedItems() const { return selected_; }
    void selectItems(const std::vector<ListItem>& items);
    /// The item that the keyboard stands on, 0 for none.
    [[nodiscard]] ListItem currentItem() const { return model_->itemAt(currentIndex().row()); }
    void reveal(ListItem item);
    /// As wide as the columns.
    [[nodiscard]] QSize sizeHint() const override;

    void keyboardSearch(const QString&) override {}

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Of the keyboard: the columns to sort by, as their titles cannot be reached with it.
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    class Quietly;

    template <typename Handle>
    bool withoutReports(const Handle& handle);
    void report();
    void sendNews();
    [[nodiscard]] bool open(UInt32 kind);
    void chooseSort();
    void pressTitle(int place);
    [[nodiscard]] bool showWholeText(const QHelpEvent& event);
    void alignTitles();
    void stretchLastColumn();
    [[nodiscard]] std::vector<ListItem> itemsInSight() const;
    void scrollBackTo(const std::vector<ListItem>& seen, int top);
    void standOn(int row);

    ListModel* model_;
    int lastColumnWidth_ = 0;  // at least
    std::vector<ListItem> selected_;
    bool isQuiet_ = false;
    bool hasNews_ = false;
    int eventsUnderWay_ = 0;
};

}  // namespace toolbox
