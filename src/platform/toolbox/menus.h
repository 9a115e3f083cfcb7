// Menus of popups and menu buttons. Items count from 1; item 0 is the menu itself.
#pragma once

#include "foundation/string.h"
#include "kalmo/statuses.h"
#include "toolbox/controls.h"

/// Room for a signed ticket value or an address.
using ItemReference = std::intptr_t;

enum MenuItemAttributes : UInt32 {
    kMenuItemPlain = 0,
    kMenuItemDisabled = 1,
    /// A line; its text is not shown and it cannot be chosen.
    kMenuItemSeparator = 2,
};

#pragma GCC visibility push(default)

/// Borrowed: the menu of a popup or menu button. Null when the control has none.
[[nodiscard]] MenuRef GetControlPopupMenu(ControlRef popup);
/// A menu of its own, for submenus and menu buttons; DisposeMenu frees it.
[[nodiscard]] MenuRef CreateNewMenu();
void DisposeMenu(MenuRef menu);

[[nodiscard]] UInt16 CountMenuItems(MenuRef menu);
/// `item` (may be null) receives the new item's number. A text "-" stays a text: ask for
/// separators, which keep no text.
OSStatus AppendMenuItemTextWithCFString(MenuRef menu, CFStringRef text, UInt32 attributes,
                                        UInt32 command, UInt16* item);
/// After item `after`; 0 puts it first.
OSStatus InsertMenuItemTextWithCFString(MenuRef menu, CFStringRef text, UInt16 after,
                                        UInt32 attributes, UInt32 command);
OSStatus DeleteMenuItem(MenuRef menu, UInt16 item);
OSStatus DeleteMenuItems(MenuRef menu, UInt16 first, UInt32 count);

[[nodiscard]] CFStringRef CopyMenuItemTextAsCFString(MenuRef menu, UInt16 item);
OSStatus SetMenuItemRefCon(MenuRef menu, UInt16 item, ItemReference reference);
/// paramErr outside the menu; 0 for an item without one.
OSStatus GetMenuItemRefCon(MenuRef menu, UInt16 item, ItemReference* reference);
OSStatus SetMenuItemCommandID(MenuRef menu, UInt16 item, UInt32 command);
OSStatus GetMenuItemCommandID(MenuRef menu, UInt16 item, UInt32* command);
/// The item opens `submenu`, which belongs to `menu` from then on and goes with the item. A null
/// `submenu` frees the one before.
OSStatus SetMenuItemHierarchicalMenu(MenuRef menu, UInt16 item, MenuRef submenu);
/// Borrowed; null for an item without one.
[[nodiscard]] MenuRef GetMenuItemHierarchicalMenu(MenuRef menu, UInt16 item);
void CheckMenuItem(MenuRef menu, UInt16 item, Boolean checked);
[[nodiscard]] Boolean IsMenuItemChecked(MenuRef menu, UInt16 item);
void EnableMenuItem(MenuRef menu, UInt16 item);
void DisableMenuItem(MenuRef menu, UInt16 item);
[[nodiscard]] Boolean IsMenuItemEnabled(MenuRef menu, UInt16 item);
[[nodiscard]] Boolean IsMenuItemSeparator(MenuRef menu, UInt16 item);
/// Acts as if the user had chosen the item of a menu button's menu or submenu: its command is sent
/// from the button, with menu and item. Items that are disabled or have no command do nothing.
void SimulateMenuChoice(ControlRef button, MenuRef menu, UInt16 item);

#pragma GCC visibility pop
