#include "toolbox/pane_layouts.h"

#include <QGridLayout>
#include <QLabel>
#include <algorithm>

#include "toolbox/control_state.h"

namespace toolbox {
namespace {

QSize Grown(const QSize& size, const QMargins& distances) { return size.grownBy(distances); }

/// A pane that was drawn with a least size still grows with what it holds.
QSize LeastSize(QLayoutItem& item) {
    const QWidget* const pane = item.widget();
    return pane ? item.minimumSize().expandedTo(pane->minimumSizeHint()) : item.minimumSize();
}

/// Null unless the row is a grid that begins with a label which explains a control.
QLabel* FrontLabel(const QGridLayout& grid, int line) {
    QLayoutItem* const item = grid.itemAtPosition(line, 0);
    auto* const label = item ? qobject_cast<QLabel*>(item->widget()) : nullptr;
    const bool explains = label && (label->buddy() || label->property("labelColumn").toBool());
    return explains ? label : nullptr;
}

template <typename Visit>
void ForEachGrid(const QLayout& column, const Visit& visit) {
    for (int index = 0; index < column.count(); ++index) {
        QWidget* const row = column.itemAt(index)->widget();
        if (auto* grid = row ? qobject_cast<QGridLayout*>(row->layout()) : nullptr) {
            visit(*grid, *row);
        }
    }
}

int WidestFrontLabel(const QGridLayout& grid) {
    int widest = 0;
    for (int line = 0; line < grid.rowCount(); ++line) {
        const QLabel* const label = FrontLabel(grid, line);
        if (label && IsShown(*label)) widest = std::max(widest, label->sizeHint().width());
    }
    return widest;
}

}  // namespace

AnchorLayout::~AnchorLayout() = default;

void AnchorLayout::anchor(QWidget& pane) {
    const QRect room = parentWidget()->rect();
    const QRect place = pane.geometry();
    QSizePolicy policy = pane.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    pane.setSizePolicy(policy);
    addChildWidget(&pane);
    const QMargins distances(std::max(0, place.left()), std::max(0, place.top()),
                             std::max(0, room.right() - place.right()),
                             std::max(0, room.bottom() - place.bottom()));
    const bool hasSize =
        parentWidget()->isVisible() || parentWidget()->testAttribute(Qt::WA_Resized);
    panes_.push_back(
        {std::make_unique<QWidgetItem>(&pane), hasSize ? distances : QMargins(), place.size()});
    invalidate();
}

void AnchorLayout::addItem(QLayoutItem* item) {
    panes_.push_back({std::unique_ptr<QLayoutItem>(item), {}, {}});
    invalidate();
}

int AnchorLayout::count() const { return static_cast<int>(panes_.size()); }

QLayoutItem* AnchorLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? panes_[static_cast<std::size_t>(index)].item.get()
                                         : nullptr;
}

QLayoutItem* AnchorLayout::takeAt(int index) {
    if (!itemAt(index)) return nullptr;
    QLayoutItem* const item = panes_[static_cast<std::size_t>(index)].item.release();
    panes_.erase(panes_.begin() + index);
    return item;
}

QSize AnchorLayout::sizeHint() const {
    QSize size = minimumSize();
    for (const Anchored& pane : panes_) {
        size =
            size.expandedTo(Grown(pane.item->sizeHint().expandedTo(pane.designed), pane.distances));
    }
    return size;
}

QSize AnchorLayout::minimumSize() const {
    QSize size(0, 0);
    for (const Anchored& pane : panes_) {
        size = size.expandedTo(Grown(LeastSize(*pane.item), pane.distances));
    }
    for (QWidget* view : Subviews(*parentWidget())) {
        if (indexOf(view) >= 0 || !IsShown(*view)) continue;
        size = size.expandedTo({view->geometry().right() + 1, view->geometry().bottom() + 1});
    }
    return size;
}

bool AnchorLayout::hasHeightForWidth() const {
    return std::ranges::any_of(panes_,
                               [](const Anchored& pane) { return pane.item->hasHeightForWidth(); });
}

int AnchorLayout::heightForWidth(int width) const {
    int height = minimumSize().height();
    for (const Anchored& pane : panes_) {
        if (!pane.item->hasHeightForWidth()) continue;
        const QMargins& edges = pane.distances;
        height =
            std::max(height, edges.top() + edges.bottom() +
                                 pane.item->heightForWidth(width - edges.left() - edges.right()));
    }
    return height;
}

void AnchorLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    for (const Anchored& pane : panes_) pane.item->setGeometry(rect.marginsRemoved(pane.distances));
}

SectionColumn::SectionColumn(QWidget* pane) : QVBoxLayout(pane) {
    setContentsMargins(0, 0, 0, 0);
    setSpacing(0);
    addStretch();
}

void SectionColumn::append(QWidget& row, const QRect& place) {
    insertSpacing(count() - 1, std::max(0, place.top() - drawnBottom_));
    insertWidget(count() - 1, &row);
    drawnBottom_ = place.top() + place.height();
    if (const auto* grid = qobject_cast<QGridLayout*>(row.layout())) {
        drawnLabelWidth_ = std::max(drawnLabelWidth_, grid->columnMinimumWidth(0));
        for (int line = 0; line < grid->rowCount(); ++line) {
            if (QLabel* const label = FrontLabel(*grid, line)) {
                // Right means left where writing runs from right to left.
                label->setAlignment(Qt::AlignRight | (label->alignment() & Qt::AlignVertical_Mask));
            }
        }
    }
}

void SectionColumn::invalidate() {
    linedUp_ = false;
    QVBoxLayout::invalidate();
}

QSize SectionColumn::sizeHint() const {
    lineUpLabels();
    return QVBoxLayout::sizeHint();
}

QSize SectionColumn::minimumSize() const {
    lineUpLabels();
    return QVBoxLayout::minimumSize();
}

int SectionColumn::heightForWidth(int width) const {
    lineUpLabels();
    return QVBoxLayout::heightForWidth(width);
}

void SectionColumn::setGeometry(const QRect& rect) {
    lineUpLabels();
    QVBoxLayout::setGeometry(rect);
}

void SectionColumn::lineUpLabels() const {
    if (linedUp_) return;
    linedUp_ = true;
    int widest = drawnLabelWidth_;
    ForEachGrid(*this, [&widest](const QGridLayout& grid, QWidget&) {
        widest = std::max(widest, WidestFrontLabel(grid));
    });
    ForEachGrid(*this, [widest](QGridLayout& grid, QWidget& row) {
        if (WidestFrontLabel(grid) == 0 || grid.columnMinimumWidth(0) == widest) return;
        grid.setColumnMinimumWidth(0, widest);
        row.updateGeometry();  // the row's new size has not reached this layout yet
    });
}

}  // namespace toolbox
