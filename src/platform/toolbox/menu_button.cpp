#include "toolbox/menu_button.h"

#include <QKeyEvent>
#include <QStylePainter>

#include "toolbox/event_way.h"

namespace toolbox {
namespace {

/// Item texts are data: an ampersand marks no letter, a tab begins no shortcut.
QString AsActionText(QString text) {
    return text.replace(QLatin1Char('&'), QLatin1String("&&"))
        .replace(QLatin1Char('\t'), QLatin1Char(' '));
}

/// A popup shows its text as it is: without the mark of the letter to press, "&&" for "&".
QString WithoutMarks(const QString& title) {
    QString text;
    for (qsizetype i = 0; i < title.size(); ++i) {
        if (title[i] == QLatin1Char('&') && ++i == title.size()) break;
        text += title[i];
    }
    return text;
}

void Show(const Menu& items, QMenu& shown);

QAction* AddAction(const Menu& items, const QModelIndex& item, QMenu& shown) {
    const QString text = AsActionText(item.data().toString());
    const Menu* const submenu = SubmenuAt(items, item.row());
    if (!submenu) return shown.addAction(text);
    QMenu* const opened = shown.addMenu(text);
    Show(*submenu, *opened);
    return opened->menuAction();
}

void ShowItem(const Menu& items, const QModelIndex& item, QMenu& shown) {
    QAction* const action = AddAction(items, item, shown);
    action->setEnabled(item.flags() & Qt::ItemIsEnabled);
    action->setCheckable(IsChecked(item));
    action->setChecked(IsChecked(item));
    action->setData(QVariant::fromValue(QPersistentModelIndex(item)));
}

void Show(const Menu& items, QMenu& shown) {
    for (int row = 0; row < items.rowCount(); ++row) {
        if (IsSeparator(items, row)) {
            shown.addSeparator();
        } else {
            ShowItem(items, items.index(row, 0), shown);
        }
    }
}

/// Opened menus may still stand on the stack, below the handler that opens the menu again.
void Empty(QMenu& shown) {
    for (QAction* action : shown.actions()) {
        shown.removeAction(action);
        action->menu() ? action->menu()->deleteLater() : action->deleteLater();
    }
}

bool CanBeChosen(const Menu& root, const Menu& menu, int row) {
    const QStandardItem* const item = menu.item(row);
    if (!item || !item->isEnabled()) return false;
    if (&menu == &root) return true;
    const Menu* const parent = ParentOf(menu);
    return parent && CanBeChosen(root, *parent, RowOfSubmenu(*parent, menu));
}

}  // namespace

MenuButton::MenuButton(QWidget* parent)
    : QPushButton(parent), items_(new Menu(this)), shown_(new QMenu(this)) {
    setAutoDefault(false);
    setMenu(shown_);
    connect(shown_, &QMenu::aboutToShow, this, &MenuButton::fill);
    connect(shown_, &QMenu::triggered, this, [this](const QAction* action) {
        choose(action->data().value<QPersistentModelIndex>());
    });
}

QStyleOptionComboBox MenuButton::look() const {
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.subControls = QStyle::SC_All;
    option.activeSubControls = QStyle::SC_ComboBoxArrow;
    option.currentText = WithoutMarks(text());
    option.state.setFlag(QStyle::State_Sunken, isDown() || shown_->isVisible());
    return option;
}

QSize MenuButton::sizeHint() const {
    const QStyleOptionComboBox option = look();
    const QSize words = fontMetrics().size(Qt::TextShowMnemonic, text());
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, words, this);
}

void MenuButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    const QStyleOptionComboBox option = look();
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void MenuButton::fill() {
    const QPointer<MenuButton> self = this;
    OpaqueEvent event{kEventClassMenu, kEventMenuPopulate, this};
    SendEvent(*this, event);
    if (!self) return;
    Empty(*shown_);
    Show(*items_, *shown_);
    // Nothing to see would still take the next click. It cannot be hidden before it is shown.
    if (shown_->isEmpty() || !isVisible()) {
        QMetaObject::invokeMethod(shown_, &QWidget::hide, Qt::QueuedConnection);
    }
}

void MenuButton::choose(const QModelIndex& item) {
    if (const UInt32 command = item.data(kCommandRole).toUInt()) {
        SendChosenCommand(*this, command, item);
    }
}

void MenuButton::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Down:
            showMenu();
            return;
        default:
            QPushButton::keyPressEvent(event);
    }
}

}  // namespace toolbox

using namespace toolbox;

void SimulateMenuChoice(ControlRef button, MenuRef menu, UInt16 item) {
    auto* const widget = qobject_cast<MenuButton*>(ToWidget(button));
    const Menu* const chosen = ToMenu(menu);
    if (!widget || !chosen || !widget->isEnabled()) return;
    const int row = item - 1;
    if (SubmenuAt(*chosen, row) || !CanBeChosen(widget->items(), *chosen, row)) return;
    widget->choose(chosen->index(row, 0));
}
