#include "settings/setting_menus.h"

#include "settings/dictionary.h"
#include "settings/user_preferences.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

CFStringRef KeyOfItem(const SettingMap& row, JobContext context) {
    if (row.value != kPrinterDefault) return row.key;
    return context == JobContext::job ? CFSTR("PrinterDefault") : CFSTR("UseJobSetting");
}

void AppendRow(CFBundleRef bundle, MenuRef menu, const SettingMap& row, JobContext context,
               UInt32 command) {
    const auto text = CopyText(bundle, KeyOfItem(row, context));
    // The line between groups stays an item with a value, so that positions hold.
    const UInt32 attributes = CFEqual(row.key, CFSTR("-")) ? kMenuItemSeparator : kMenuItemPlain;
    UInt16 item = 0;
    if (AppendMenuItemTextWithCFString(menu, text, attributes, command, &item) == noErr)
        SetMenuItemRefCon(menu, item, row.value);
}

/// Inserts the remembered inputs that are strings; their number.
SInt32 InsertHistory(MenuRef menu, const HistoryItems& history) {
    const auto preferences = Owned<CFDictionaryRef>::Adopt(CopyUserPreferences(kInputHistoryFile));
    const auto inputs = ValueOfType<CFArrayRef>(
        CFDictionaryGetValue(preferences, history.historyKey), CFArrayGetTypeID());
    UInt16 inserted = 0;
    for (CFIndex i = 0; i < CFArrayGetCount(inputs); ++i) {
        const auto input =
            ValueOfType<CFStringRef>(CFArrayGetValueAtIndex(inputs, i), CFStringGetTypeID());
        const auto after = static_cast<UInt16>(history.insertPosition + inserted);
        if (input && InsertMenuItemTextWithCFString(menu, input, after, kMenuItemPlain,
                                                    history.command) == noErr)
            ++inserted;
    }
    return inserted;
}

}  // namespace

UInt16 MenuItemWithReference(MenuRef menu, ItemReference sought) {
    const UInt16 count = menu ? CountMenuItems(menu) : UInt16{0};
    for (UInt16 item = 1; item <= count; ++item) {
        ItemReference reference = 0;
        if (GetMenuItemRefCon(menu, item, &reference) == noErr && reference == sought) return item;
    }
    return 0;
}

bool SetPopupButtonToTicketValue(ControlRef popup, SInt32 value) {
    const UInt16 item =
        popup ? MenuItemWithReference(GetControlPopupMenu(popup), value) : UInt16{0};
    if (item == 0) return false;
    SetControl32BitValue(popup, item);
    return true;
}

SInt32 GetPopupButtonTicketValue(ControlRef popup) {
    const SInt32 item = popup ? GetControl32BitValue(popup) : 0;
    if (item < 1) return 0;  // item 0 is the menu, whose constant is the map's address
    ItemReference reference = 0;
    GetMenuItemRefCon(GetControlPopupMenu(popup), static_cast<UInt16>(item), &reference);
    return static_cast<SInt32>(reference);
}

SInt32 PopulateMenuFromMap(CFBundleRef bundle, MenuRef menu, const SettingMap* map,
                           JobContext context, UInt32 commandOverride) {
    if (!menu || !map) return 0;
    const SettingMap* row = map;
    for (; row->key; ++row) {
        if (IsRowOffered(*row))
            AppendRow(bundle, menu, *row, context,
                      commandOverride ? commandOverride : row->command);
    }
    SetMenuItemRefCon(menu, 0, reinterpret_cast<ItemReference>(map));
    // Kept as it is: rows that are not offered count too, so that a popup's maximum can exceed its
    // items.
    return static_cast<SInt32>(row - map);
}

SInt32 PopulatePopupButtonFromMap(CFBundleRef bundle, ControlRef popup, const SettingMap* map,
                                  JobContext context, UInt32 commandOverride) {
    return PopulatePopupButtonFromMapAndHistory(bundle, popup, map, context, {}, commandOverride);
}

SInt32 PopulatePopupButtonFromMapAndHistory(CFBundleRef bundle, ControlRef popup,
                                            const SettingMap* map, JobContext context,
                                            const HistoryItems& history, UInt32 commandOverride) {
    const MenuRef menu = popup ? GetControlPopupMenu(popup) : nullptr;
    if (!menu) return 0;
    DeleteMenuItems(menu, 1, CountMenuItems(menu));
    SInt32 count = PopulateMenuFromMap(bundle, menu, map, context, commandOverride);
    if (history.historyKey) count += InsertHistory(menu, history);
    SetControl32BitMaximum(popup, count);
    return count;
}

}  // namespace kalmo
