#include "toolbox/list_widget.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QSet>
#include <QToolTip>
#include <algorithm>

#include "toolbox/event_way.h"
#include "toolbox/qt_strings.h"
#include "toolbox/raw_keys.h"
#include "toolbox/text_input.h"

namespace toolbox {
namespace {

/// In ascending order, each once.
std::vector<int> RowsOf(const QItemSelection& selection) {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
    }
    std::ranges::sort(rows);
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

std::vector<ListItem> ItemsOf(const QItemSelection& selection, const ListModel& model) {
    std::vector<ListItem> items;
    for (const int row : RowsOf(selection)) items.push_back(model.itemAt(row));
    return items;
}

/// One range for rows that follow each other.
QItemSelection SelectionOf(const std::vector<ListItem>& items, const ListModel& model) {
    std::vector<int> rows;
    for (const ListItem item : items) rows.push_back(model.rowOf(item));
    std::ranges::sort(rows);
    const auto endOfRun = [&rows](auto row) {
        while (row + 1 != rows.end() && *(row + 1) == *row + 1) ++row;
        return row;
    };
    QItemSelection selection;
    for (auto first = rows.begin(); first != rows.end();) {
        const auto last = endOfRun(first);
        selection.append(QItemSelectionRange(model.index(*first, 0),
                                             model.index(*last, model.columnCount() - 1)));
        first = last + 1;
    }
    return selection;
}

}  // namespace

/// What happens meanwhile is not the user's doing: it sends no event and scrolls nothing.
class ListView::Quietly final {
public:
    explicit Quietly(ListView& list) : list_(list), wasQuiet_(list.isQuiet_) {
        list.isQuiet_ = true;
        list.setAutoScroll(false);
    }
    ~Quietly() {
        list_.isQuiet_ = wasQuiet_;
        list_.setAutoScroll(!wasQuiet_);
    }
    Quietly(const Quietly&) = delete;
    Quietly& operator=(const Quietly&) = delete;

private:
    ListView& list_;
    bool wasQuiet_;
};

ListView::ListView(QWidget* parent) : QTreeView(parent), model_(new ListModel(*this)) {
    setModel(model_);
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollMode(ScrollPerPixel);
    header()->setObjectName(QStringLiteral("qt_list_header"));  // an inner part, no view
    alignTitles();
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setSortIndicatorClearable(true);
    connect(header(), &QHeaderView::sortIndicatorChanged, this, [this] {
        if (!isQuiet_) SendEventToControl(ToControl(this), kEventClassList, kEventListSortChanged);
    });
    connect(header(), &QHeaderView::sectionResized, this, &ListView::stretchLastColumn);
}

void ListView::addColumn(OSType column, const QString& title, int width) {
    const Quietly quietly(*this);
    const int place = model_->columnCount();
    model_->addColumn(column, title);
    lastColumnWidth_ = std::max(width, header()->sectionSizeHint(place));
    if (place > 0) header()->setSectionResizeMode(place - 1, QHeaderView::Interactive);
    header()->setSectionResizeMode(place, QHeaderView::Fixed);
    header()->resizeSection(place, lastColumnWidth_);
    updateGeometry();
    stretchLastColumn();
    selectItems(std::vector(selected_));  // the new cells too
}

QSize ListView::sizeHint() const {
    int width = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
    for (int column = 0; column < header()->count(); ++column)
        width += column + 1 < header()->count() ? header()->sectionSize(column) : lastColumnWidth_;
    return {std::max(width, QTreeView::sizeHint().width()), QTreeView::sizeHint().height()};
}

void ListView::stretchLastColumn() {
    const int last = model_->columnCount() - 1;
    if (last < 0) return;
    const int others = header()->length() - header()->sectionSize(last);
    header()->resizeSection(last, std::max(lastColumnWidth_, viewport()->width() - others));
}

/// Where the texts below begin: Qt would leave them on the left.
void ListView::alignTitles() {
    header()->setDefaultAlignment((isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft) |
                                  Qt::AlignVCenter);
}

void ListView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LayoutDirectionChange) alignTitles();
    QTreeView::changeEvent(event);
}

void ListView::resizeEvent(QResizeEvent* event) {
    stretchLastColumn();
    QTreeView::resizeEvent(event);
}

void ListView::setSelectsMany(bool many) {
    setSelectionMode(many ? ExtendedSelection : SingleSelection);
    selectItems(std::vector(selected_));
}

void ListView::setSortable(bool sortable) {
    const Quietly quietly(*this);
    header()->setSortIndicator(-1, Qt::AscendingOrder);
    header()->setSortIndicatorShown(sortable);
    header()->setSectionsClickable(sortable);
}

ListSort ListView::sort() const {
    const OSType column = model_->columnAt(header()->sortIndicatorSection());
    return {column, column != 0 && header()->sortIndicatorOrder() == Qt::DescendingOrder};
}

bool ListView::setItems(const std::vector<ListItem>& items) {
    if (items == model_->items()) {
        viewport()->update();
        return true;
    }
    const Quietly quietly(*this);
    model_->letItemsGo();  // rows that are not laid out yet are, to see which are in sight
    const std::vector<ListItem> seen = itemsInSight(), selected = selected_;
    const int top = verticalScrollBar()->value(), row = currentIndex().row();
    const ListItem current = currentItem();
    if (!model_->replace(items)) return false;
    selectItems(selected);
    const int currentRow = model_->rowOf(current);
    standOn(currentRow < 0 ? std::min(row, model_->rowCount() - 1) : currentRow);
    scrollBackTo(seen, top);
    return true;
}

void ListView::standOn(int row) {
    selectionModel()->setCurrentIndex(model_->index(row, 0), QItemSelectionModel::NoUpdate);
}

std::vector<ListItem> ListView::itemsInSight() const {
    const auto& items = model_->items();
    const int lowest = indexAt({0, viewport()->height() - 1}).row();
    const auto first = items.begin() + std::min(verticalScrollBar()->value(), model_->rowCount());
    return {first, lowest < 0 ? items.end() : items.begin() + lowest + 1};
}

/// The first of those that were in sight and are still there stands where it stood.
void ListView::scrollBackTo(const std::vector<ListItem>& seen, int top) {
    executeDelayedItemsLayout();
    const auto kept =
        std::ranges::find_if(seen, [this](ListItem item) { return model_->rowOf(item) >= 0; });
    if (kept != seen.end()) top = model_->rowOf(*kept) - static_cast<int>(kept - seen.begin());
    verticalScrollBar()->setValue(top);
}

void ListView::selectItems(const std::vector<ListItem>& items) {
    const Quietly quietly(*this);
    QSet<ListItem> taken;
    std::vector<ListItem> selected;
    for (const ListItem item : items) {
        if (selectionMode() == SingleSelection && !selected.empty()) break;
        if (model_->rowOf(item) < 0 || taken.contains(item)) continue;
        taken.insert(item);
        selected.push_back(item);
    }
    selectionModel()->clearSelection();  // Qt compares each old range with each new one
    selectionModel()->select(SelectionOf(selected, *model_), QItemSelectionModel::Select);
    if (!selected.empty() && !taken.contains(currentItem())) {
        standOn(model_->rowOf(selected.front()));
    }
    selected_ = std::move(selected);
}

void ListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    if (isQuiet_) return;
    const std::vector<ListItem> gone = ItemsOf(deselected, *model_);
    if (!gone.empty()) {
        const QSet<ListItem> leaving(gone.begin(), gone.end());
        std::erase_if(selected_, [&leaving](ListItem item) { return leaving.contains(item); });
    }
    const std::vector<ListItem> added = ItemsOf(selected, *model_);
    selected_.insert(selected_.end(), added.begin(), added.end());
    hasNews_ = true;
    report();
}

void ListView::reveal(ListItem item) {
    if (const int row = model_->rowOf(item); row >= 0) {
        executeDelayedItemsLayout();
        const int before = horizontalScrollBar()->value();
        scrollTo(model_->index(row, 0));
        horizontalScrollBar()->setValue(before);
    }
}

/// A handler may change the list, which Qt does not expect in the midst of an event.
void ListView::report() {
    if (eventsUnderWay_ == 0) sendNews();
}

void ListView::sendNews() {
    if (!std::exchange(hasNews_, false)) return;
    SendEventToControl(ToControl(this), kEventClassList, kEventListSelectionChanged);
}

template <typename Handle>
bool ListView::withoutReports(const Handle& handle) {
    const QPointer<ListView> self = this;
    ++eventsUnderWay_;
    const bool handled = handle();
    if (!self) return handled;
    --eventsUnderWay_;
    report();
    return handled;
}

bool ListView::event(QEvent* event) {
    const auto standard = [this, event] {
        return withoutReports([this, event] { return QTreeView::event(event); });
    };
    if (event->type() != QEvent::KeyPress) return standard();
    SendRawKey(*this, static_cast<QKeyEvent&>(*event), standard);
    return true;
}

bool ListView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip && showWholeText(static_cast<QHelpEvent&>(*event))) {
        return true;
    }
    return withoutReports([this, event] { return QTreeView::viewportEvent(event); });
}

bool ListView::showWholeText(const QHelpEvent& event) {
    const QModelIndex cell = indexAt(event.pos());
    const QRect place = visualRect(cell);
    const bool isCut = cell.isValid() && (sizeHintForIndex(cell).width() > place.width() ||
                                          place.intersected(viewport()->rect()) != place);
    if (!isCut) return false;
    const QString text = cell.data().toString();
    QToolTip::showText(event.globalPos(), AsPlainText(text), viewport(), place);
    return !text.isEmpty();
}

/// Return that opens nothing goes on to the default button.
void ListView::keyPressEvent(QKeyEvent* event) {
    if (IsReturn(*event) && selected_.size() == 1 && open(kEventListItemOpened)) return;
    QTreeView::keyPressEvent(event);
}

void ListView::contextMenuEvent(QContextMenuEvent* event) {
    const bool isAsked = event->reason() == QContextMenuEvent::Keyboard;
    isAsked&& header()->sectionsClickable() ? chooseSort() : QTreeView::contextMenuEvent(event);
}

/// To choose a title does what to press it does.
void ListView::chooseSort() {
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int place = 0; place < model_->columnCount(); ++place) {
        const QString text = model_->headerData(place, Qt::Horizontal, Qt::DisplayRole).toString();
        QAction* const title = menu->addAction(QString(text).replace(u'&', QStringLiteral("&&")));
        title->setCheckable(true);
        title->setChecked(place == header()->sortIndicatorSection());
        connect(title, &QAction::triggered, this, [this, place] { pressTitle(place); });
    }
    menu->popup(viewport()->mapToGlobal(QPoint()));
}

/// Ascending, descending, not sorted.
void ListView::pressTitle(int place) {
    const bool isSorted = place == header()->sortIndicatorSection();
    if (isSorted && sort().isDescending) {
        header()->setSortIndicator(-1, Qt::AscendingOrder);
    } else {
        header()->setSortIndicator(place, isSorted ? Qt::DescendingOrder : Qt::AscendingOrder);
    }
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
    QTreeView::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton) return;
    const QModelIndex cell = indexAt(event->position().toPoint());
    if (!cell.isValid()) {
        (void)open(kEventListGroundOpened);
    } else if (selectionModel()->isSelected(cell)) {
        (void)open(kEventListItemOpened);
    }
}

bool ListView::open(UInt32 kind) {
    const QPointer<ListView> self = this;
    sendNews();
    return self && SendEventToControl(ToControl(this), kEventClassList, kind) != eventNotHandledErr;
}

}  // namespace toolbox
