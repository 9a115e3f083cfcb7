#include "watermark/watermark_menu.h"

#include <algorithm>
#include <iterator>

#include "settings/dictionary.h"
#include "settings/setting_maps.h"
#include "settings/setting_menus.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

constexpr CFIndex kLongestName = 48;

/// Values of WatermarkMap, which has no commands of its own.
constexpr SInt32 kOptionsValue = -6, kDeleteValue = -9;
constexpr struct {
    SInt32 value;
    UInt32 command;
    bool needsWatermark;
} kItems[] = {
    {1, kNoWatermarkCommand, false},
    {kOptionsValue, 0, true},
    {-7, kNewWatermarkCommand, false},
    {-8, kEditWatermarkCommand, true},
    {kDeleteValue, kDeleteWatermarkCommand, true},
};

void Enable(MenuRef menu, UInt16 item, bool on) {
    on ? EnableMenuItem(menu, item) : DisableMenuItem(menu, item);
}

void AttachOptions(MenuRef menu, CFBundleRef bundle) {
    const MenuRef options = CreateNewMenu();
    PopulateMenuFromMap(bundle, options, WatermarkOptionsMap, JobContext::job,
                        kWatermarkOptionsCommand);
    SetMenuItemHierarchicalMenu(menu, MenuItemWithReference(menu, kOptionsValue), options);
}

void MarkOptions(MenuRef options, const WatermarkMarks& marks) {
    for (UInt16 item = 1; options && item <= CountMenuItems(options); ++item) {
        ItemReference value = 0;
        GetMenuItemRefCon(options, item, &value);
        CheckMenuItem(options, item, value == marks.layer || value == marks.pages);
    }
}

/// The names' references are indexes, which the fixed items' values could equal: those stand last,
/// but for the first.
UInt16 FixedItem(MenuRef menu, SInt32 value) {
    return value < 0 ? MenuItemWithReference(menu, value) : UInt16{1};
}

}  // namespace

UInt16 InsertWatermarkNames(MenuRef menu, UInt16 after, CFArrayRef names, UInt32 command) {
    UInt16 item = after;
    for (CFIndex i = 0; i < CFArrayGetCount(names); ++i) {
        const auto name =
            ValueOfType<CFStringRef>(CFArrayGetValueAtIndex(names, i), CFStringGetTypeID());
        if (!name || InsertMenuItemTextWithCFString(menu, CopyShortened(name, kLongestName), item,
                                                    kMenuItemPlain, command) != noErr)
            continue;
        SetMenuItemRefCon(menu, ++item, i);
    }
    return static_cast<UInt16>(item - after);
}

Owned<CFStringRef> CopyAsTitle(CFStringRef text) {
    std::string title;
    for (const char character : CFStringToUTF8(text))
        title.append(character == '&' ? 2 : 1, character);
    return Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(title));
}

void FillWatermarkMenu(MenuRef menu, CFBundleRef bundle, CFArrayRef names) {
    if (!menu) return;
    DeleteMenuItems(menu, 1, CountMenuItems(menu));
    PopulateMenuFromMap(bundle, menu, WatermarkMap, JobContext::job, 0);
    for (const auto& row : kItems)
        SetMenuItemCommandID(menu, FixedItem(menu, row.value), row.command);
    AttachOptions(menu, bundle);
    InsertWatermarkNames(menu, 1, names, kWatermarkCommand);
}

void MarkWatermarkMenu(MenuRef menu, const WatermarkMarks& marks) {
    if (!menu) return;
    const UInt16 firstFixed = MenuItemWithReference(menu, -5);
    for (UInt16 item = 1; item < firstFixed; ++item) CheckMenuItem(menu, item, item == marks.item);
    for (const auto& row : kItems)
        if (row.needsWatermark) Enable(menu, FixedItem(menu, row.value), marks.item > 1);
    if (!marks.isStored) Enable(menu, FixedItem(menu, kDeleteValue), false);
    MarkOptions(GetMenuItemHierarchicalMenu(menu, FixedItem(menu, kOptionsValue)), marks);
}

}  // namespace kalmo
