#include "toolbox/menus.h"

#include <algorithm>
#include <limits>

#include "toolbox/control_state.h"
#include "toolbox/menu_model.h"
#include "toolbox/qt_strings.h"

namespace toolbox {
namespace {

constexpr int kMostItems = std::numeric_limits<UInt16>::max();

/// Null outside the menu, and for the menu itself.
QStandardItem* ItemAt(MenuRef menu, UInt16 item) {
    return menu && item > 0 ? ToMenu(menu)->item(item - 1) : nullptr;
}

QStandardItem* NewItem(CFStringRef text, UInt32 attributes, UInt32 command) {
    auto* const item = new QStandardItem;
    if (attributes & kMenuItemSeparator) {
        // The mark by which the popup's list draws a line and the arrow keys pass over it.
        item->setData(QStringLiteral("separator"), Qt::AccessibleDescriptionRole);
        item->setFlags(Qt::NoItemFlags);
    } else {
        item->setText(ToQString(text));
        item->setEnabled(!(attributes & kMenuItemDisabled));
    }
    item->setData(command, kCommandRole);
    return item;
}

OSStatus Insert(MenuRef menu, int row, QStandardItem* item) {
    ToMenu(menu)->insertRow(row, item);
    return noErr;
}

bool HasRoomFor(MenuRef menu, CFStringRef text, UInt32 attributes) {
    return menu && (text || attributes & kMenuItemSeparator) &&
           ToMenu(menu)->rowCount() < kMostItems;
}

/// A menu that stands nowhere yet, and not one that `menu` itself stands in.
bool CanStandIn(const Menu& submenu, const Menu& menu) {
    const Menu* above = &menu;
    while (above && above != &submenu) above = ParentOf(*above);
    return !above && !submenu.QObject::parent();
}

}  // namespace

}  // namespace toolbox

using namespace toolbox;

MenuRef GetControlPopupMenu(ControlRef control) {
    QWidget* const widget = ToWidget(control);
    return ToMenuRef(widget ? MenuOf(*widget) : nullptr);
}

MenuRef CreateNewMenu() { return ToMenuRef(new Menu); }

void DisposeMenu(MenuRef menu) {
    if (menu && !ToMenu(menu)->QObject::parent()) delete ToMenu(menu);
}

UInt16 CountMenuItems(MenuRef menu) {
    return menu ? static_cast<UInt16>(std::min(ToMenu(menu)->rowCount(), kMostItems)) : 0;
}

OSStatus AppendMenuItemTextWithCFString(MenuRef menu, CFStringRef text, UInt32 attributes,
                                        UInt32 command, UInt16* item) {
    if (!HasRoomFor(menu, text, attributes)) return paramErr;
    Insert(menu, ToMenu(menu)->rowCount(), NewItem(text, attributes, command));
    if (item) *item = CountMenuItems(menu);
    return noErr;
}

OSStatus InsertMenuItemTextWithCFString(MenuRef menu, CFStringRef text, UInt16 after,
                                        UInt32 attributes, UInt32 command) {
    if (!HasRoomFor(menu, text, attributes)) return paramErr;
    return Insert(menu, std::min<int>(after, ToMenu(menu)->rowCount()),
                  NewItem(text, attributes, command));
}

OSStatus DeleteMenuItem(MenuRef menu, UInt16 item) { return DeleteMenuItems(menu, item, 1); }

OSStatus DeleteMenuItems(MenuRef menu, UInt16 first, UInt32 count) {
    const UInt32 items = CountMenuItems(menu);
    if (!menu || first == 0 || (first > items && count > 0)) return paramErr;
    if (count > 0) {
        ToMenu(menu)->removeRows(first - 1, static_cast<int>(std::min(count, items - first + 1)));
    }
    return noErr;
}

CFStringRef CopyMenuItemTextAsCFString(MenuRef menu, UInt16 item) {
    const QStandardItem* const found = ItemAt(menu, item);
    return found ? CreateString(found->text()) : nullptr;
}

OSStatus SetMenuItemRefCon(MenuRef menu, UInt16 item, ItemReference reference) {
    if (menu && item == 0) {
        ToMenu(menu)->reference = reference;
        return noErr;
    }
    QStandardItem* const found = ItemAt(menu, item);
    if (!found) return paramErr;
    found->setData(QVariant::fromValue<qlonglong>(reference), kReferenceRole);
    return noErr;
}

OSStatus GetMenuItemRefCon(MenuRef menu, UInt16 item, ItemReference* reference) {
    const QStandardItem* const found = ItemAt(menu, item);
    if (!menu || !reference || (item > 0 && !found)) return paramErr;
    *reference = item == 0 ? ToMenu(menu)->reference
                           : static_cast<ItemReference>(found->data(kReferenceRole).toLongLong());
    return noErr;
}

OSStatus SetMenuItemCommandID(MenuRef menu, UInt16 item, UInt32 command) {
    QStandardItem* const found = ItemAt(menu, item);
    if (!found) return paramErr;
    found->setData(command, kCommandRole);
    return noErr;
}

OSStatus GetMenuItemCommandID(MenuRef menu, UInt16 item, UInt32* command) {
    const QStandardItem* const found = ItemAt(menu, item);
    if (!found || !command) return paramErr;
    *command = found->data(kCommandRole).toUInt();
    return noErr;
}

OSStatus SetMenuItemHierarchicalMenu(MenuRef menu, UInt16 item, MenuRef submenu) {
    if (!ItemAt(menu, item)) return paramErr;
    if (submenu && submenu == GetMenuItemHierarchicalMenu(menu, item)) return noErr;
    if (submenu && !CanStandIn(*ToMenu(submenu), *ToMenu(menu))) return paramErr;
    SetSubmenu(*ToMenu(menu), item - 1, ToMenu(submenu));
    return noErr;
}

MenuRef GetMenuItemHierarchicalMenu(MenuRef menu, UInt16 item) {
    return ToMenuRef(ItemAt(menu, item) ? SubmenuAt(*ToMenu(menu), item - 1) : nullptr);
}

void CheckMenuItem(MenuRef menu, UInt16 item, Boolean checked) {
    // No state at all, rather than "unchecked", draws no empty box.
    if (QStandardItem* const found = ItemAt(menu, item)) {
        found->setData(checked ? QVariant(Qt::Checked) : QVariant(), Qt::CheckStateRole);
    }
}

Boolean IsMenuItemChecked(MenuRef menu, UInt16 item) {
    const QStandardItem* const found = ItemAt(menu, item);
    return found && IsChecked(found->index());
}

void EnableMenuItem(MenuRef menu, UInt16 item) {
    if (QStandardItem* const found = ItemAt(menu, item);
        found && !IsMenuItemSeparator(menu, item)) {
        found->setEnabled(true);
    }
}

void DisableMenuItem(MenuRef menu, UInt16 item) {
    if (QStandardItem* const found = ItemAt(menu, item)) found->setEnabled(false);
}

Boolean IsMenuItemEnabled(MenuRef menu, UInt16 item) {
    const QStandardItem* const found = ItemAt(menu, item);
    return found && found->isEnabled();
}

Boolean IsMenuItemSeparator(MenuRef menu, UInt16 item) {
    return ItemAt(menu, item) && IsSeparator(*ToMenu(menu), item - 1);
}
