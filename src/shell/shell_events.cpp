#include "shell/shell_events.h"

#include <iterator>

#include "paper_output/print_check.h"
#include "shell/base/help.h"
#include "shell/base/panel_interface.h"
#include "shell/panel_switching.h"
#include "system/system.h"

namespace kalmo {
namespace {

constexpr EventTypeSpec kHit = {kEventClassControl, kEventControlHit};
constexpr EventTypeSpec kCommand = {kEventClassCommand, kEventCommandProcess};
constexpr EventTypeSpec kMenu = {kEventClassMenu, kEventMenuPopulate};

OSStatus CheckBeforePrinting() {
    if (CheckPrintJob() == PrintCheckResult::pass) return eventNotHandledErr;
    // Up to 10.4 the press counts as handled, from then on only a status of its own keeps the
    // dialog open: both values are deliberate.
    return GetSystemVersion() >= kSystemVersion10_5 ? kKalmoKeepDialogOpen : noErr;
}

/// Commands reach the window of a pane that is not open yet; then there is nothing to step through.
OSStatus Step(SInt32 step, PDEShellContext& shell) {
    if (shell.openedOnce) StepPanel(step, &shell);
    return noErr;
}

OSStatus ChooseSelectedPanel(PDEShellContext& shell) {
    const SInt32 chosen = GetControl32BitValue(shell.selector);
    if (chosen >= 1 && chosen <= shell.panelCount && chosen != lastTabIndex)
        selectPanel(chosen, &shell);
    return noErr;
}

OSStatus HandleHit(EventRef event, PDEShellContext& shell) {
    ControlID hit{};
    if (GetControlID(GetEventControl(event), &hit) != noErr || hit.signature != 'Kshl')
        return eventNotHandledErr;
    switch (hit.id) {
        case 16:
            return ChooseSelectedPanel(shell);
        case 1966:
            return Step(-1, shell);
        case 1967:
            return Step(1, shell);
        default:
            return eventNotHandledErr;
    }
}

OSStatus HandleCommand(EventRef event, PDEShellContext& shell) {
    switch (GetEventCommand(event)) {
        case 'help':
            DisplayHelp(shell.bundle, nullptr, nullptr);
            return noErr;
        case 'KFup':
            return Step(1, shell);
        case 'KFdn':
            return Step(-1, shell);
        case 'ok  ':
            return CheckBeforePrinting();
        default:
            return eventNotHandledErr;
    }
}

OSStatus Handle(EventRef event, PDEShellContext& shell) {
    switch (GetEventClass(event)) {
        case kEventClassControl:
            return HandleHit(event, shell);
        case kEventClassCommand:
            return HandleCommand(event, shell);
        case kEventClassMenu:
            return noErr;
        default:
            return eventNotHandledErr;
    }
}

/// Leaves the check to the dialog's own handlers, so that one press of Print checks once.
OSStatus OpenShellEventHandler(EventHandlerCallRef next, EventRef event, void* shell) {
    return GetEventCommand(event) == 'ok  ' ? eventNotHandledErr
                                            : pdeShellEventHandler(next, event, shell);
}

void Remove(EventHandlerRef& handler) {
    RemoveEventHandler(handler);
    handler = nullptr;
}

}  // namespace

OSStatus pdeShellEventHandler(EventHandlerCallRef, EventRef event, void* shell) {
    return WithoutExceptions(eventNotHandledErr,
                             [&] { return Handle(event, *static_cast<PDEShellContext*>(shell)); });
}

void InstallDialogHandlers(PDEShellContext& shell) {
    constexpr EventTypeSpec kEvents[] = {kHit, kCommand};
    EventHandlerRef handler = nullptr;
    if (GetSystemVersion() >= kSystemVersion10_5) {
        InstallWindowEventHandler(GetControlOwner(shell.parent), pdeShellEventHandler,
                                  std::size(kEvents), kEvents, &shell, &handler);
        shell.dialogHandlers.push_back(handler);
        return;
    }
    for (const ControlRef button : {shell.defaultButton, shell.cancelButton}) {
        InstallControlEventHandler(button, pdeShellEventHandler, std::size(kEvents), kEvents,
                                   &shell, &handler);
        shell.dialogHandlers.push_back(handler);
    }
}

void InstallOpenHandler(PDEShellContext& shell) {
    if (shell.openHandler) return;
    InstallWindowEventHandler(GetControlOwner(shell.parent), OpenShellEventHandler, 1, &kCommand,
                              &shell, &shell.openHandler);
}

void RemoveOpenHandler(PDEShellContext& shell) { Remove(shell.openHandler); }

void InstallPaneHandler(PDEShellContext& shell) {
    constexpr EventTypeSpec kEvents[] = {kHit, kMenu};
    InstallControlEventHandler(shell.shellPane, pdeShellEventHandler, std::size(kEvents), kEvents,
                               &shell, &shell.paneHandler);
}

void RemoveAllHandlers(PDEShellContext& shell) {
    Remove(shell.openHandler);
    Remove(shell.paneHandler);
    for (EventHandlerRef& handler : shell.dialogHandlers) Remove(handler);
    shell.dialogHandlers.clear();
}

}  // namespace kalmo
