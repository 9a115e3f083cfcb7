#include "toolbox/menu_model.h"

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
    const auto* popup = qobject_cast<const QComboBox*>(&widget);
    return popup ? qobject_cast<Menu*>(popup->model()) : nullptr;
}

UInt32 ChosenCommand(const QWidget& widget) {
    const auto* popup = qobject_cast<const QComboBox*>(&widget);
    return popup ? popup->currentData(kCommandRole).toUInt() : 0;
}

bool IsSeparator(const Menu& menu, int row) {
    return menu.index(row, 0).data(Qt::AccessibleDescriptionRole) == QLatin1String("separator");
}

}  // namespace toolbox
