#include "toolbox/menu_model.h"

#include <memory>

#include "toolbox/menu_button.h"

namespace toolbox {

void GiveMenu(QComboBox& popup) {
    auto* const items = qobject_cast<QStandardItemModel*>(popup.model());
    if (MenuOf(popup) || !items || items->QObject::parent() != &popup) return;
    const int chosen = popup.currentIndex();
    const QSignalBlocker quiet(popup);
    auto* const menu = new Menu(&popup);
    for (int row = 0; row < items->rowCount(); ++row) menu->appendRow(items->item(row)->clone());
    popup.setModel(menu);
    popup.setCurrentIndex(chosen);
}

Menu* MenuOf(const QWidget& widget) {
    if (const auto* button = qobject_cast<const MenuButton*>(&widget)) return &button->items();
    const auto* popup = qobject_cast<const QComboBox*>(&widget);
    return popup ? qobject_cast<Menu*>(popup->model()) : nullptr;
}

QModelIndex ChosenItem(const QWidget& widget) {
    const auto* popup = qobject_cast<const QComboBox*>(&widget);
    return popup && MenuOf(widget) ? popup->model()->index(popup->currentIndex(), 0)
                                   : QModelIndex();
}

bool IsSeparator(const Menu& menu, int row) {
    return menu.index(row, 0).data(Qt::AccessibleDescriptionRole) == QLatin1String("separator");
}

bool IsChecked(const QModelIndex& item) {
    return item.data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

void SetSubmenu(Menu& menu, int row, Menu* submenu) {
    if (submenu) submenu->QObject::setParent(&menu);
    menu.item(row)->setData(
        submenu ? QVariant::fromValue(std::shared_ptr<Menu>(submenu)) : QVariant(), kSubmenuRole);
}

Menu* SubmenuAt(const Menu& menu, int row) {
    return menu.index(row, 0).data(kSubmenuRole).value<std::shared_ptr<Menu>>().get();
}

Menu* ParentOf(const Menu& submenu) { return qobject_cast<Menu*>(submenu.QObject::parent()); }

int RowOfSubmenu(const Menu& menu, const Menu& submenu) {
    int row = menu.rowCount() - 1;
    while (row >= 0 && SubmenuAt(menu, row) != &submenu) --row;
    return row;
}

}  // namespace toolbox
