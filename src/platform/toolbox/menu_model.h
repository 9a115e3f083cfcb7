// A menu: the item model that a popup shows. One item per row, item 1 in row 0.
#pragma once

#include <QComboBox>
#include <QStandardItemModel>

#include "toolbox/menus.h"

namespace toolbox {

inline constexpr int kReferenceRole = Qt::UserRole + 1;
inline constexpr int kCommandRole = Qt::UserRole + 2;

class Menu final : public QStandardItemModel {
    Q_OBJECT

public:
    using QStandardItemModel::QStandardItemModel;

    /// The reference constant of the menu itself, its item 0.
    ItemReference reference = 0;
};

/// Makes the items of a box that keeps its own a Menu, with the same items and choice.
void GiveMenu(QComboBox& popup);
/// Null unless `widget` is a popup with a menu.
[[nodiscard]] Menu* MenuOf(const QWidget& widget);
/// The command of a popup's chosen item, 0 when there is none.
[[nodiscard]] UInt32 ChosenCommand(const QWidget& widget);
[[nodiscard]] bool IsSeparator(const Menu& menu, int row);

}  // namespace toolbox
