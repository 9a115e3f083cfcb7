#include "toolbox/list_view.h"

#include <algorithm>

#include "toolbox/control_state.h"
#include "toolbox/list_widget.h"
#include "toolbox/qt_strings.h"

using namespace toolbox;

namespace {

ListView* ListOf(ControlRef control) { return qobject_cast<ListView*>(ToWidget(control)); }

}  // namespace

void SetListTextProc(ControlRef control, ListTextProc proc, void* userData) {
    ListView* const list = ListOf(control);
    if (!list) return;
    list->items().setTextProc(proc, userData);
    list->viewport()->update();
}

OSStatus AddListColumn(ControlRef control, OSType column, CFStringRef title, SInt32 width) {
    ListView* const list = ListOf(control);
    if (!list || width < 0) return paramErr;
    list->addColumn(column, ToQString(title), width);
    return noErr;
}

void SetListSelectsMany(ControlRef control, Boolean many) {
    if (ListView* const list = ListOf(control)) list->setSelectsMany(many);
}

void SetListSortable(ControlRef control, Boolean sortable) {
    if (ListView* const list = ListOf(control)) list->setSortable(sortable);
}

ListSort GetListSort(ControlRef control) {
    const ListView* const list = ListOf(control);
    return list ? list->sort() : ListSort();
}

OSStatus AddListItems(ControlRef control, const std::vector<ListItem>& items) {
    ListView* const list = ListOf(control);
    return list && list->items().append(items) ? noErr : paramErr;
}

OSStatus SetListItems(ControlRef control, const std::vector<ListItem>& items) {
    ListView* const list = ListOf(control);
    return list && list->setItems(items) ? noErr : paramErr;
}

std::vector<ListItem> GetListItems(ControlRef control) {
    const ListView* const list = ListOf(control);
    return list ? list->items().items() : std::vector<ListItem>();
}

SInt64 CountListItems(ControlRef control) {
    const ListView* const list = ListOf(control);
    return list ? list->items().rowCount() : 0;
}

std::vector<ListItem> GetListSelection(ControlRef control) {
    const ListView* const list = ListOf(control);
    return list ? list->selectedItems() : std::vector<ListItem>();
}

OSStatus SetListSelection(ControlRef control, const std::vector<ListItem>& items) {
    ListView* const list = ListOf(control);
    if (!list) return paramErr;
    list->selectItems(items);
    return noErr;
}

ListItem GetListSelectionAnchor(ControlRef control) {
    const ListView* const list = ListOf(control);
    if (!list || list->selectedItems().empty()) return 0;
    const std::vector<ListItem>& selected = list->selectedItems();
    const bool standsOnOne = std::ranges::find(selected, list->currentItem()) != selected.end();
    return standsOnOne ? list->currentItem() : selected.front();
}

void ScrollListToTop(ControlRef control) {
    if (ListView* const list = ListOf(control)) list->scrollToTop();
}

void RevealListItem(ControlRef control, ListItem item) {
    if (ListView* const list = ListOf(control)) list->reveal(item);
}

void RefreshListItems(ControlRef control) {
    if (ListView* const list = ListOf(control)) list->viewport()->update();
}
