// Menus and popups filled from setting maps, and selected by ticket value.
#pragma once

#include "settings/setting_map.h"
#include "toolbox/menus.h"

namespace kalmo {

/// The first item with that reference constant; 0 when there is none, or no menu.
[[nodiscard]] UInt16 MenuItemWithReference(MenuRef menu, ItemReference sought);
/// Selects the first item whose reference constant is `value`; false, selection unchanged,
/// otherwise.
bool SetPopupButtonToTicketValue(ControlRef popup, SInt32 value);
/// The reference constant of the chosen item; 0 when nothing is chosen.
[[nodiscard]] SInt32 GetPopupButtonTicketValue(ControlRef popup);

/// Appends the rows that are offered, each with its value as reference constant, and the map itself
/// as that of item 0. `commandOverride` 0: each row's own command. Returns the number of rows
/// walked, offered or not.
SInt32 PopulateMenuFromMap(CFBundleRef bundle, MenuRef menu, const SettingMap* map,
                           JobContext context, UInt32 commandOverride);
/// Empties the popup's menu, fills it, and makes the result the popup's maximum.
SInt32 PopulatePopupButtonFromMap(CFBundleRef bundle, ControlRef popup, const SettingMap* map,
                                  JobContext context, UInt32 commandOverride);

/// Where a popup's remembered inputs go, and what choosing one means.
struct HistoryItems {
    CFStringRef historyKey = nullptr;  // null: no history
    UInt16 insertPosition = 0;         // the first goes after this item
    UInt32 command = 0;
};
/// The same, then the strings kept under the history key in com.kalmo.print.inputhistory.plist.
SInt32 PopulatePopupButtonFromMapAndHistory(CFBundleRef bundle, ControlRef popup,
                                            const SettingMap* map, JobContext context,
                                            const HistoryItems& history, UInt32 commandOverride);

}  // namespace kalmo
