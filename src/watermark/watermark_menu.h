// A menu of watermarks: none, the names in the order of the list, and what can be done with them.
#pragma once

#include "foundation/collections.h"
#include "settings/setting_map.h"
#include "toolbox/menus.h"

namespace kalmo {

/// Commands of the items that mean the same in every menu of watermarks.
inline constexpr UInt32 kNoWatermarkCommand = 'KWmX', kWatermarkCommand = 'KWmW',
                        kWatermarkOptionsCommand = 'KWmO', kNewWatermarkCommand = 'KWmN',
                        kEditWatermarkCommand = 'KWmE', kDeleteWatermarkCommand = 'KWmD';

/// Behind item `after`, one for each name (strings), with its index in the list and the command.
/// Long names are shortened. The number of items.
UInt16 InsertWatermarkNames(MenuRef menu, UInt16 after, CFArrayRef names, UInt32 command);

/// Longer names would make a menu's button wider than its window should be.
inline constexpr CFIndex kLongestWatermarkTitle = 40;
/// The text as a button's title, in which "&" marks a letter to press.
[[nodiscard]] Owned<CFStringRef> CopyAsTitle(CFStringRef text);

/// Empties the menu and fills it for the print watermarks. Item 1 is no watermark, the next are the
/// names.
void FillWatermarkMenu(MenuRef menu, CFBundleRef bundle, CFArrayRef names);

/// What the menu's marks and its items for the chosen watermark depend on.
struct WatermarkMarks {
    UInt16 item = 1;       // the chosen one
    bool isStored = true;  // it can be deleted
    SInt32 layer = 0, pages = 0;
};
void MarkWatermarkMenu(MenuRef menu, const WatermarkMarks& marks);

}  // namespace kalmo
