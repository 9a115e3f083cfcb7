#include "print_dialog/destination_popup.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "print_dialog/destination_delegate.h"
#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

/// So many are found by looking.
constexpr int kShortList = 8;
constexpr int kMostRows = 10;
constexpr int kGap = 4;
const QKeySequence kFavoriteKey(Qt::CTRL | Qt::Key_D);

bool IsOneOf(int key, std::initializer_list<Qt::Key> keys) {
    return std::ranges::find(keys, key) != keys.end();
}

bool IsTyping(const QKeyEvent& key) {
    if (IsOneOf(key.key(), {Qt::Key_Backspace, Qt::Key_Delete})) return true;
    const bool command = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
    return !command && !key.text().isEmpty() && key.text().front().isPrint();
}

bool Closes(const QKeyEvent& key) {
    const bool alt = (key.modifiers() & Qt::AltModifier) != 0;
    return IsOneOf(key.key(), {Qt::Key_Escape, Qt::Key_F4}) ||
           (alt && IsOneOf(key.key(), {Qt::Key_Up, Qt::Key_Down}));
}

QListView* CreateList(DestinationModel& model, QWidget* parent) {
    auto* list = new QListView(parent);
    list->setObjectName("printers");
    list->setModel(&model);
    list->setItemDelegate(new DestinationDelegate(list));
    list->setUniformItemSizes(true);
    list->setFrameShape(QFrame::NoFrame);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setMouseTracking(true);
    list->setTabKeyNavigation(false);
    list->setAccessibleName(WindowText("Printers"));
    list->setAccessibleDescription(
        WindowText("Favorite key", {kFavoriteKey.toString(QKeySequence::NativeText)}));
    return list;
}

}  // namespace

DestinationPopup::DestinationPopup(DestinationModel& model, QWidget* parent)
    : QFrame(parent, Qt::Popup),
      model_(model),
      search_(new QLineEdit(this)),
      nothing_(CreateNoteLabel(this)),
      list_(CreateList(model, this)) {
    setAttribute(Qt::WA_NoMouseReplay);  // a press on the control closes it and is done
    setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    setAccessibleName(WindowText("Printers"));
    search_->setPlaceholderText(WindowText("Search printers"));
    search_->setAccessibleName(WindowText("Search printers"));
    nothing_->setText(WindowText("No printer found"));
    nothing_->setContentsMargins(kGap, 0, kGap, 0);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kGap, kGap, kGap, kGap);
    column->setSpacing(kGap);
    for (QWidget* part : {static_cast<QWidget*>(search_), static_cast<QWidget*>(nothing_),
                          static_cast<QWidget*>(list_)}) {
        column->addWidget(part);
    }
    for (QObject* object : {static_cast<QObject*>(search_), static_cast<QObject*>(list_),
                            static_cast<QObject*>(list_->viewport())}) {
        object->installEventFilter(this);
    }
    connect(search_, &QLineEdit::textChanged, this, &DestinationPopup::search);
    connect(list_, &QListView::clicked, this, &DestinationPopup::choose);
    connect(list_, &QListView::entered, this,
            [this](const QModelIndex& index) { list_->setCurrentIndex(index); });
    connect(&model_, &QAbstractItemModel::modelReset, this, [this] {
        if (isVisible()) adjust();
    });
}

void DestinationPopup::open(const QWidget& control, int current) {
    model_.arrange();
    control_ = QRect(control.mapToGlobal(QPoint(0, 0)), control.size());
    setLayoutDirection(control.layoutDirection());
    setFont(control.font());
    adjust();
    show();
    standOn(model_.rowOf(current));
    (search_->isVisible() ? static_cast<QWidget*>(search_) : list_)->setFocus(Qt::PopupFocusReason);
}

void DestinationPopup::adjust() {
    search_->setVisible(model_.queueCount() > kShortList || !search_->text().isEmpty());
    nothing_->setVisible(model_.queueCount() > 0 && model_.rowCount() == 1);
    const QRect room = screen()->availableGeometry();
    QSize size = wantedSize().boundedTo(room.size());
    const int below = room.bottom() - control_.bottom();
    const int above = control_.top() - room.top();
    const bool drops = size.height() <= below || below >= above;
    size.setHeight(std::min(size.height(), drops ? below : above));
    const int left = layoutDirection() == Qt::RightToLeft ? control_.right() - size.width() + 1
                                                          : control_.left();
    const QPoint corner(std::clamp(left, room.left(), room.right() - size.width() + 1),
                        drops ? control_.bottom() + 1 : control_.top() - size.height());
    setGeometry(QRect(corner, size));
    if (list_->model()->rowCount() > 0 && !list_->currentIndex().isValid()) standOn(0);
}

QSize DestinationPopup::wantedSize() const {
    // A search leaves the size as it is: what moves under the eyes is hard to read.
    const int rows = std::clamp(model_.queueCount() + 1, 1, kMostRows);
    const int margins = 2 * (kGap + frameWidth());
    const int bar = list_->verticalScrollBar()->sizeHint().width();
    QSize size(list_->sizeHintForColumn(0) + bar + margins,
               std::max(1, list_->sizeHintForRow(0)) * rows + margins);
    for (const QWidget* part : {static_cast<QWidget*>(search_), static_cast<QWidget*>(nothing_)}) {
        if (!part->isHidden()) size.rheight() += part->sizeHint().height() + kGap;
    }
    return size.expandedTo(QSize(control_.width(), 0));
}

void DestinationPopup::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    search_->clear();
}

void DestinationPopup::search(const QString& typed) {
    model_.setSearch(typed);
    standOn(0);
}

void DestinationPopup::standOn(int row) {
    list_->setCurrentIndex(model_.index(std::max(row, 0)));
    list_->scrollTo(list_->currentIndex());
}

void DestinationPopup::moveBy(int rows) {
    const int count = model_.rowCount();
    // From the first row back to the last: the folder is never far away.
    standOn((list_->currentIndex().row() + rows + count) % count);
}

void DestinationPopup::choose(const QModelIndex& index) {
    if (!index.isValid()) return;
    const int destination = model_.destinationAt(index.row());
    close();
    Q_EMIT chosen(destination);
}

void DestinationPopup::toggleFavorite(const QModelIndex& index) {
    const QVariant favorite = index.data(DestinationModel::kFavoriteRole);
    if (!favorite.isValid()) return;
    model_.setFavorite(index.row(), !favorite.toBool());
    const auto& destination = model_.destinations()[model_.destinationAt(index.row())];
    Q_EMIT marked(destination.queue, !favorite.toBool());
}

bool DestinationPopup::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
            return object != list_->viewport() && pressed(object, static_cast<QKeyEvent&>(*event));
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
            return object == list_->viewport() && pressedStar(static_cast<QMouseEvent&>(*event));
        case QEvent::ContextMenu:
            if (object == search_) return false;
            showMenu(static_cast<QContextMenuEvent&>(*event));
            return true;
        default:
            return false;
    }
}

bool DestinationPopup::pressed(QObject* object, QKeyEvent& key) {
    if (Closes(key)) return close();
    if (IsOneOf(key.key(), {Qt::Key_Return, Qt::Key_Enter})) {
        choose(list_->currentIndex());
        return true;
    }
    if (QKeySequence(key.keyCombination()) == kFavoriteKey) {
        toggleFavorite(list_->currentIndex());
        return true;
    }
    if (IsOneOf(key.key(), {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown})) {
        list_->setFocus();
        if (IsOneOf(key.key(), {Qt::Key_PageUp, Qt::Key_PageDown})) {
            return object == search_ && QCoreApplication::sendEvent(list_, &key);
        }
        moveBy(key.key() == Qt::Key_Up ? -1 : 1);
        return true;
    }
    return object == list_ && pressedInList(key);
}

bool DestinationPopup::pressedInList(QKeyEvent& key) {
    if (!IsTyping(key)) return false;
    search_->show();
    search_->setFocus();
    search_->end(false);
    QCoreApplication::sendEvent(search_, &key);
    adjust();
    return true;
}

bool DestinationPopup::pressedStar(const QMouseEvent& mouse) {
    const QModelIndex index = list_->indexAt(mouse.position().toPoint());
    const QRect star = DestinationDelegate::starArea(list_->visualRect(index), layoutDirection());
    const bool hit = index.data(DestinationModel::kFavoriteRole).isValid() &&
                     mouse.button() == Qt::LeftButton && star.contains(mouse.position().toPoint());
    if (hit && mouse.type() != QEvent::MouseButtonRelease) toggleFavorite(index);
    return hit;
}

void DestinationPopup::showMenu(const QContextMenuEvent& event) {
    const bool byMouse = event.reason() == QContextMenuEvent::Mouse;
    const QPersistentModelIndex index =
        byMouse ? list_->indexAt(list_->viewport()->mapFromGlobal(event.globalPos()))
                : list_->currentIndex();
    const QVariant favorite = index.data(DestinationModel::kFavoriteRole);
    if (!favorite.isValid()) return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    auto* act = menu->addAction(favorite.toBool() ? WindowText("Remove from favorites")
                                                  : WindowText("Add to favorites"));
    act->setShortcut(kFavoriteKey);
    act->setShortcutVisibleInContextMenu(true);
    connect(act, &QAction::triggered, this, [this, index] { toggleFavorite(index); });
    const QRect row = list_->visualRect(index);
    menu->popup(byMouse ? event.globalPos() : list_->viewport()->mapToGlobal(row.center()));
}

}  // namespace kalmo
