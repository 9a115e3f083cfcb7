// Lists with columns, whose texts are asked for as rows come into sight.
//
// An item is a number of the owner's choosing, not 0, each once. The class in an interface file is
// "ListView". A list that is no list answers 0 or paramErr.
#pragma once

#include <vector>

#include "foundation/string.h"
#include "kalmo/statuses.h"
#include "toolbox/events.h"

using ListItem = SInt64;
/// What a text is asked for that the owner does not know.
inline constexpr OSStatus kListPropertyNotSupportedErr = -4979;

/// Gives a text for the item in the column (the callee creates it, the list releases it), or a
/// status that leaves the cell empty.
using ListTextProc = OSStatus (*)(ControlRef list, ListItem item, OSType column, CFStringRef* text,
                                  void* userData);

/// From the list: another selection; a double click on an item, or Enter with one selected; another
/// column or direction to sort by, which the owner follows with SetListItems; a double click where
/// no item is.
inline constexpr UInt32 kEventClassList = 'list';
inline constexpr UInt32 kEventListSelectionChanged = 1;
inline constexpr UInt32 kEventListItemOpened = 2;
inline constexpr UInt32 kEventListSortChanged = 3;
inline constexpr UInt32 kEventListGroundOpened = 4;

/// Column 0: in the owner's own order.
struct ListSort {
    OSType column = 0;
    bool isDescending = false;
};

#pragma GCC visibility push(default)

void SetListTextProc(ControlRef list, ListTextProc proc, void* userData);
/// `width` in pixels, or what the title needs; the last column takes what is left, but no less.
OSStatus AddListColumn(ControlRef list, OSType column, CFStringRef title, SInt32 width);
/// How many rows may be selected: one, or as many as wanted.
void SetListSelectsMany(ControlRef list, Boolean many);

/// The user may press the columns' titles, or choose them in a menu that the keyboard opens:
/// ascending, descending, the owner's own order again. The list only shows what is chosen; the
/// order is that of its items.
void SetListSortable(ControlRef list, Boolean sortable);
[[nodiscard]] ListSort GetListSort(ControlRef list);

/// Behind those already there, in this order. Selection and scrolling stay.
OSStatus AddListItems(ControlRef list, const std::vector<ListItem>& items);
/// In the place of all items, which may be gone by now. Those of the selection that are still there
/// stay selected, in their order; the row at the top of the view stays if it can. No event is sent.
OSStatus SetListItems(ControlRef list, const std::vector<ListItem>& items);
[[nodiscard]] std::vector<ListItem> GetListItems(ControlRef list);
[[nodiscard]] SInt64 CountListItems(ControlRef list);

/// In the order in which they were selected; the order of the list where that is not known (all at
/// once, a range).
[[nodiscard]] std::vector<ListItem> GetListSelection(ControlRef list);
/// Items that are not there are left out. No event is sent.
OSStatus SetListSelection(ControlRef list, const std::vector<ListItem>& items);
/// The item that the keyboard stands on when it is selected, else the first selected; 0 for none.
[[nodiscard]] ListItem GetListSelectionAnchor(ControlRef list);
/// Scrolls to the first row.
void ScrollListToTop(ControlRef list);
/// Scrolls the item into sight.
void RevealListItem(ControlRef list, ListItem item);
/// Texts are asked for anew.
void RefreshListItems(ControlRef list);

#pragma GCC visibility pop
