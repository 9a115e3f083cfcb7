// The panel's commands: which of them can be used, and what they do.
#include <algorithm>
#include <iterator>

#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "shell/base/notices.h"
#include "special_pages/special_page_dialogs.h"
#include "special_pages/special_pages_panel.h"

namespace kalmo {
namespace {

using Context = _SpecialPagesContext;

constexpr SInt32 kAddCoversID = 100, kAddInsertsID = 200, kAddExceptionsID = 300, kEditID = 1200,
                 kDeleteID = 1300, kDeleteAllID = 1400, kUndoID = 1500, kMoveUpID = 1600,
                 kMoveDownID = 1700;

ControlRef Button(const Context& context, SInt32 id) {
    ControlRef button = nullptr;
    GetControlByID(GetControlOwner(context.list), {'KPDE', id}, &button);
    return button;
}

/// A button that is pressed and cannot be pressed again leaves the keyboard to the list: to the
/// next button, which may delete, it must not go by itself.
void Enable(const Context& context, SInt32 id, bool on) {
    const ControlRef button = Button(context, id);
    if (!on && HasKeyboardFocus(button)) SetKeyboardFocus(context.list);
    on ? EnableControl(button) : DisableControl(button);
}

SpecialPage* PageOf(const Context& context, ListItem item) {
    const auto page = context.shown.find(item);
    return page == context.shown.end() ? nullptr : page->second;
}

/// In the order in which they were selected.
std::vector<SpecialPage*> Selected(const Context& context) {
    std::vector<SpecialPage*> pages;
    for (const ListItem item : GetListSelection(context.list))
        if (SpecialPage* const page = PageOf(context, item)) pages.push_back(page);
    return pages;
}

bool CanPromote(const InsertList& list, const Insert* insert) { return list.canPromote(insert); }
bool CanDemote(const InsertList& list, const Insert* insert) { return list.canDemote(insert); }

/// Kept as it is: each page in turn overrules the one before, so that the last selected decides.
bool CanMove(const Context& context, const std::vector<SpecialPage*>& selected,
             bool (*can)(const InsertList&, const Insert*)) {
    if (selected.empty()) return false;
    const auto* const last = dynamic_cast<const Insert*>(selected.back());
    return last && can(*context.model.now.inserts, last);
}

bool IsTwoSided(const Context& context) {
    constexpr SInt32 kOneSided = 1;
    SInt32 sides = kOneSided;
    PPDGetTicketValueForChoiceOrDefault(context.ppd, context.ticket, CFSTR("Duplex"), &sides);
    return sides > kOneSided;
}

/// False when the dialog was cancelled.
bool AddCovers(Context& context) {
    return RunModalCoversDialog(&context.model, DialogMode::add) == kModalOK;
}

/// Pages that share a sheet have none of their own. The ticket may have changed since the button
/// was enabled.
bool IsRefusedForLayout(Context& context, SInt32 id) {
    if (!HasLayout(context.ticket)) return false;
    Enable(context, id, false);
    return true;
}

bool AddInserts(Context& context) {
    return !IsRefusedForLayout(context, kAddInsertsID) &&
           RunModalInsertsDialog(&context.model, DialogMode::add, nullptr) == kModalOK;
}

bool AddExceptions(Context& context) {
    return !IsRefusedForLayout(context, kAddExceptionsID) &&
           RunModalExceptionsDialog(&context.model, DialogMode::add, nullptr) == kModalOK;
}

/// The page is gone when the dialog ends with OK.
SInt32 RunEditor(SpecialPagesModel& model, const SpecialPage& page) {
    if (const auto* insert = dynamic_cast<const Insert*>(&page))
        return RunModalInsertsDialog(&model, DialogMode::edit, insert);
    if (const auto* exception = dynamic_cast<const ExceptionPage*>(&page))
        return RunModalExceptionsDialog(&model, DialogMode::edit, exception);
    return RunModalCoversDialog(&model, DialogMode::edit);
}

bool Edit(Context& context) {
    const SpecialPage* const page = PageOf(context, GetListSelectionAnchor(context.list));
    return page && RunEditor(context.model, *page) == kModalOK;
}

/// Kept as it is: the state is saved before the question, so that a refused deletion still takes
/// the place of what could be undone before.
bool DeleteSelected(Context& context) {
    SaveUndoState(&context.model);
    DeleteSelectedSpecialPages();
    return true;
}

bool DeleteAll(Context& context) {
    SaveUndoState(&context.model);
    DeleteAllSpecialPages();
    return true;
}

bool Undo(Context& context) {
    PerformUndo(&context.model);
    return true;
}

template <void (InsertList::*move)(const Insert*)>
bool Move(Context& context) {
    SaveUndoState(&context.model);
    for (SpecialPage* const page : Selected(context))
        if (const auto* insert = dynamic_cast<Insert*>(page))
            ((*context.model.now.inserts).*move)(insert);
    return true;
}

constexpr struct {
    SInt32 id;
    bool (*act)(Context& context);
    bool makesPages = false;
} kCommands[] = {
    {kAddCoversID, AddCovers, true},
    {kAddInsertsID, AddInserts, true},
    {kAddExceptionsID, AddExceptions, true},
    {kEditID, Edit, true},
    {kDeleteID, DeleteSelected},
    {kDeleteAllID, DeleteAll},
    {kUndoID, Undo},
    {kMoveUpID, Move<&InsertList::promote>},
    {kMoveDownID, Move<&InsertList::demote>},
};

/// The serial number of the page made last.
SInt64 NewestOf(const Context& context) {
    SInt64 newest = 0;
    for (const auto& [serial, page] : context.shown) newest = std::max(newest, serial);
    return newest;
}

/// The first in the list that is newer: where the user goes on.
void SelectFirstAfter(const Context& context, SInt64 newest) {
    const std::vector<ListItem> items = GetListItems(context.list);
    const auto made =
        std::ranges::find_if(items, [newest](ListItem item) { return item > newest; });
    if (made == items.end()) return;
    SetListSelection(context.list, {*made});
    RevealListItem(context.list, *made);
    UpdateSpecialPagesCommandButtons();
}

bool IsDeletionMeant(CFBundleRef bundle, CFStringRef message) {
    return AskToDestroyWithKeys(bundle, {CFSTR("Delete Special Pages Title"), message},
                                CFSTR("No Command"), CFSTR("Yes Command"), nullptr, 0);
}

void Delete(SpecialPages& pages, const SpecialPage* page) {
    if (page == pages.front.get()) return pages.front.reset();
    if (page == pages.back.get()) return pages.back.reset();
    pages.inserts->remove(page);
    pages.exceptions->remove(page);
}

}  // namespace

void UpdateSpecialPagesCommandButtons() {
    const Context* const context = CurrentSpecialPages();
    if (!context || !context->list) return;
    const auto selected = Selected(*context);
    const struct {
        SInt32 id;
        bool on;
    } rows[] = {
        {kEditID, selected.size() == 1},
        {kDeleteID, !selected.empty()},
        {kDeleteAllID, CountListItems(context->list) > 0},
        {kUndoID, context->model.canUndo()},
        {kMoveUpID, CanMove(*context, selected, CanPromote)},
        {kMoveDownID, CanMove(*context, selected, CanDemote)},
    };
    for (const auto& row : rows) Enable(*context, row.id, row.on);
}

void UpdateSpecialPagesUI(_SpecialPagesContext* context) {
    if (!context) return;
    context->model.hasLayout = HasLayout(context->ticket);
    context->model.isBooklet = FlagInTicket(context->ticket, kBookletLayoutKey);
    context->model.isTwoSided = IsTwoSided(*context);
    if (!context->list) return;
    for (const SInt32 id : {kAddInsertsID, kAddExceptionsID})
        Enable(*context, id, !context->model.hasLayout);
}

void DeleteSelectedSpecialPages() {
    Context* const context = CurrentSpecialPages();
    if (!context || !IsDeletionMeant(context->bundle, CFSTR("Delete Selected Special Pages")))
        return;
    for (const SpecialPage* const page : Selected(*context)) Delete(context->model.now, page);
}

void DeleteAllSpecialPages() {
    Context* const context = CurrentSpecialPages();
    if (!context || !IsDeletionMeant(context->bundle, CFSTR("Delete All Special Pages"))) return;
    SpecialPages& pages = context->model.now;
    pages.front.reset();
    pages.inserts->clear();
    pages.exceptions->clear();
    pages.back.reset();
}

bool ObeySpecialPagesCommand(_SpecialPagesContext& context, SInt32 id) {
    const auto* const row =
        std::ranges::find_if(kCommands, [id](const auto& each) { return each.id == id; });
    if (row == std::end(kCommands)) return false;
    const SInt64 newest = NewestOf(context);
    if (!IsControlEnabled(Button(context, id)) || !row->act(context)) return true;
    ShowSpecialPages(context);
    if (row->makesPages) SelectFirstAfter(context, newest);
    return true;
}

}  // namespace kalmo
