// A menu: the item model that a popup or menu button shows. One item per row, item 1 in row 0.
#pragma once

#include <QComboBox>
#include <QStandardItemModel>

#include "toolbox/menus.h"

namespace toolbox {

inline constexpr int kReferenceRole = Qt::UserRole + 1;
inline constexpr int kCommandRole = Qt::UserRole + 2;
inline constexpr int kSubmenuRole = Qt::UserRole + 3;

class Menu final : public QStandardItemModel {
    Q_OBJECT

public:
    using QStandardItemModel::QStandardItemModel;

    /// The reference constant of the menu itself, its item 0.
    ItemReference reference = 0;
};

/// Makes the items of a box that keeps its own a Menu, with the same items and choice.
void GiveMenu(QComboBox& popup);
/// Null unless `widget` is a popup with a menu, or a menu button.
[[nodiscard]] Menu* MenuOf(const QWidget& widget);
/// A popup's chosen item; not valid when there is none.
[[nodiscard]] QModelIndex ChosenItem(const QWidget& widget);
[[nodiscard]] bool IsSeparator(const Menu& menu, int row);
[[nodiscard]] bool IsChecked(const QModelIndex& item);

/// The item holds the submenu and frees it; as an object it is a child of `menu`, which tells who
/// has it. Null takes the one before away.
void SetSubmenu(Menu& menu, int row, Menu* submenu);
/// Null for an item without one.
[[nodiscard]] Menu* SubmenuAt(const Menu& menu, int row);
/// The menu that `submenu` stands in, null for one that stands by itself or at a control.
[[nodiscard]] Menu* ParentOf(const Menu& submenu);
/// -1 when `submenu` does not stand in `menu`.
[[nodiscard]] int RowOfSubmenu(const Menu& menu, const Menu& submenu);

[[nodiscard]] inline Menu* ToMenu(MenuRef menu) { return reinterpret_cast<Menu*>(menu); }
[[nodiscard]] inline MenuRef ToMenuRef(const Menu* menu) {
    return reinterpret_cast<MenuRef>(const_cast<Menu*>(menu));
}

}  // namespace toolbox
