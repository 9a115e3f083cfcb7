#include <cstdio>
#include <iterator>

#include "controls/nib_holders.h"
#include "controls/panel_layout.h"
#include "controls/pictures.h"
#include "shell/base/texts.h"
#include "special_pages/special_pages_panel.h"

namespace kalmo {
namespace {

using Context = _SpecialPagesContext;

constexpr SInt32 kViewID = 50, kListID = 1000, kEditID = 1200, kDeleteID = 1300, kUndoID = 1500;

constexpr struct {
    SInt32 id;
    const char* icon;
} kButtons[] = {
    {100, "ButtonGraphic_AddCovers.icns"},     {200, "ButtonGraphic_AddInserts.icns"},
    {300, "ButtonGraphic_AddExceptions.icns"}, {kEditID, "ButtonGraphic_Edit.icns"},
    {kDeleteID, "ButtonGraphic_Delete.icns"},  {1400, "ButtonGraphic_DeleteAll.icns"},
    {kUndoID, "ButtonGraphic_Undo.icns"},      {1600, "ButtonGraphic_Move_Up.icns"},
    {1700, "ButtonGraphic_Move_Down.icns"},
};

constexpr struct {
    OSType column;
    const char* titleKey;
    SInt32 width;
} kColumns[] = {
    {kPagesColumn, "Page(s)", 100},
    {kTypeColumn, "Type Title", 90},
    {kAttributesColumn, "Attributes Title", 450},
};

ControlRef ControlIn(WindowRef window, SInt32 id) {
    ControlRef control = nullptr;
    GetControlByID(window, {'KPDE', id}, &control);
    return control;
}

/// Says which step failed.
OSStatus Told(OSStatus status, const char* what) {
    if (status != noErr) std::printf("!! %s\n", what);
    return status;
}

/// Into the pane as it stands: the list takes all the room there is.
OSStatus EmbedView(Context& context) {
    NibHolder nib;
    WindowHolder window;
    OSStatus status = Told(OpenNib(context.bundle, CFSTR("SpecialPages"), &nib),
                           "Failed to load nib from bundle.");
    if (status != noErr) return status;
    status = Told(OpenNibWindow(nib, CFSTR("SpecialPages"), &window),
                  "Failed to create window from nib.");
    if (status != noErr) return status;
    ControlRef view = nullptr;
    status = Told(GetControlByID(window.get(), {'KPDE', kViewID}, &view),
                  "Failed to get user pane control reference.");
    if (status != noErr) return status;
    Rect place;
    GetControlBounds(context.pane, &place);
    SetControlBounds(view, CentredIn(place, place));
    return EmbedControl(view, context.pane);
}

void SetUpList(Context& context) {
    for (const auto& column : kColumns) {
        const auto title = CopyText(context.bundle, CFStringMakeConstant(column.titleKey));
        AddListColumn(context.list, column.column, title, column.width);
    }
    SetListSelectsMany(context.list, true);
    SetListTextProc(context.list, SpecialPageText, &context);
}

void SetUpButtons(const Context& context) {
    for (const auto& button : kButtons)
        SetButtonPicture(ControlIn(GetControlOwner(context.list), button.id), button.icon);
}

/// What the keyboard does in the list.
SInt32 CommandForKey(EventRef event) {
    constexpr UniChar kBackspace = 8, kDelete = 127;
    const UniChar key = GetEventKeyCharacter(event);
    if (key == kDelete || key == kBackspace) return kDeleteID;
    return key == 'z' && GetEventHasControlKey(event) ? kUndoID : 0;
}

OSStatus Consumed(bool consumed) { return consumed ? noErr : eventNotHandledErr; }

OSStatus Handle(Context& context, EventRef event) {
    if (GetEventClass(event) == kEventClassKeyboard)
        return Consumed(GetEventControl(event) == context.list &&
                        ObeySpecialPagesCommand(context, CommandForKey(event)));
    if (GetEventClass(event) == kEventClassControl)
        return Consumed(ObeySpecialPagesCommand(context, IDOfHit(event)));
    if (GetEventKind(event) == kEventListItemOpened) ObeySpecialPagesCommand(context, kEditID);
    UpdateSpecialPagesCommandButtons();
    return noErr;
}

OSStatus SpecialPagesEventHandler(EventHandlerCallRef, EventRef event, void* context) {
    return WithoutExceptions(eventNotHandledErr,
                             [&] { return Handle(*static_cast<Context*>(context), event); });
}

void InstallHandler(Context& context) {
    constexpr EventTypeSpec kEvents[] = {{kEventClassControl, kEventControlHit},
                                         {kEventClassList, kEventListSelectionChanged},
                                         {kEventClassList, kEventListItemOpened},
                                         {kEventClassKeyboard, kEventRawKeyDown}};
    InstallControlEventHandler(context.pane, SpecialPagesEventHandler, std::size(kEvents), kEvents,
                               &context, &context.handler);
}

void InitializeSpecialPages(_SpecialPagesContext& context) {
    context.list = ControlIn(GetControlOwner(context.pane), kListID);
    SetUpList(context);
    SetUpButtons(context);
    InstallHandler(context);
    context.opened = true;
    ShowSpecialPages(context);
    UpdateSpecialPagesUI(&context);
}

}  // namespace

OSStatus BuildSpecialPages(_SpecialPagesContext& context) {
    const OSStatus status = EmbedView(context);
    if (status == noErr) InitializeSpecialPages(context);
    return status;
}

}  // namespace kalmo
