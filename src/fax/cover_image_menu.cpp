#include "fax/cover_image_menu.h"

#include "fax/fax_options.h"
#include "settings/setting_maps.h"
#include "settings/setting_menus.h"
#include "watermark/watermark_menu.h"

namespace kalmo {
namespace {

/// Values of CoverSheetImageMap. The names' own begin with 0, so that none can be one of these.
constexpr SInt32 kSeparatorValue = -5, kSizeValue = -6, kEditValue = -8, kDeleteValue = -9;

void MarkSizes(MenuRef sizes, SInt32 size) {
    for (UInt16 item = 1; sizes && item <= CountMenuItems(sizes); ++item) {
        ItemReference value = 0;
        GetMenuItemRefCon(sizes, item, &value);
        CheckMenuItem(sizes, item, (value == kCoverSizeLetter) == (size == kCoverSizeLetter));
    }
}

}  // namespace

void PopulateCoverSheetImageMenuFromMapAndHistory(MenuRef menu, CFBundleRef bundle,
                                                  CFArrayRef names) {
    if (!menu) return;
    DeleteMenuItems(menu, 1, CountMenuItems(menu));
    PopulateMenuFromMap(bundle, menu, CoverSheetImageMap, JobContext::job, 0);
    const MenuRef sizes = CreateNewMenu();
    PopulateMenuFromMap(bundle, sizes, FaxCoverSizeMap, JobContext::job, 0);
    SetMenuItemHierarchicalMenu(menu, MenuItemWithReference(menu, kSizeValue), sizes);
    InsertWatermarkNames(menu, kNoCoverImageItem, names, kWatermarkCommand);
}

void MarkCoverSheetImageMenu(MenuRef menu, SInt32 item, SInt32 size) {
    if (!menu) return;
    const UInt16 separator = MenuItemWithReference(menu, kSeparatorValue);
    for (UInt16 choice = 1; choice < separator; ++choice)
        CheckMenuItem(menu, choice, choice == item);
    for (const SInt32 value : {kEditValue, kDeleteValue}) {
        const UInt16 command = MenuItemWithReference(menu, value);
        item == kNoCoverImageItem ? DisableMenuItem(menu, command) : EnableMenuItem(menu, command);
    }
    MarkSizes(GetMenuItemHierarchicalMenu(menu, MenuItemWithReference(menu, kSizeValue)), size);
}

}  // namespace kalmo
