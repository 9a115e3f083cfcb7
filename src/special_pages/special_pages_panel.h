// The Special Pages panel: one list of covers, inserts and exceptions, and the commands for them.
#pragma once

#include <unordered_map>

#include "shell/base/panel_interface.h"
#include "special_pages/special_pages_model.h"
#include "toolbox/events.h"
#include "toolbox/list_view.h"

namespace kalmo {

/// The list's columns.
inline constexpr OSType kPagesColumn = 'page', kTypeColumn = 'type', kAttributesColumn = 'attr';

struct _SpecialPagesContext : PanelContext {
    SpecialPagesModel model;
    PMTicketRef ticket = kPMNoTicket;                  // of the last Sync
    ControlRef list = nullptr;                         // null before the first Open
    std::unordered_map<ListItem, SpecialPage*> shown;  // what the list's items are
    EventHandlerRef handler = nullptr;
};

/// The panel's one context, for functions that are given none; null while no panel lives.
[[nodiscard]] _SpecialPagesContext* CurrentSpecialPages();

/// Takes the view of the interface file into the pane and fills it. The failure of the file.
OSStatus BuildSpecialPages(_SpecialPagesContext& context);
/// A ListTextProc over a _SpecialPagesContext.
OSStatus SpecialPageText(ControlRef list, ListItem item, OSType column, CFStringRef* text,
                         void* context);
/// Shows these pages in order of their start pages, an exception before an insert of its page; what
/// was selected and is still there stays so. Null pages are left out; a null list shows nothing.
void UpdateSpecialPagesSummary(ControlRef list, Cover* front, InsertList* inserts,
                               ExceptionPageList* exceptions, Cover* back);
/// The same for all that the panel has.
void ShowSpecialPages(_SpecialPagesContext& context);
/// Enables what the selection allows. Nothing without a panel.
void UpdateSpecialPagesCommandButtons();
/// No inserts and exceptions where pages share a sheet. `context` may be null.
void UpdateSpecialPagesUI(_SpecialPagesContext* context);
/// Reads from the ticket whether pages share a sheet.
[[nodiscard]] bool HasLayout(PMTicketRef ticket);

/// Ask first, then delete; nothing when the answer is no.
void DeleteSelectedSpecialPages();
void DeleteAllSpecialPages();
/// What a command's button does. False for ids of other controls.
bool ObeySpecialPagesCommand(_SpecialPagesContext& context, SInt32 id);

}  // namespace kalmo

extern "C" [[gnu::visibility("default")]] OSStatus _GetSpecialPagesPanelInterface(
    PDEInterfaceObject** out);
