#include "shell/panel_switching.h"

namespace kalmo {
namespace {

void ShowPane(ControlRef pane) {
    ShowControl(pane);
    ActivateControl(pane);
    EnableControl(pane);
}

void HidePane(ControlRef pane) {
    HideControl(pane);
    DisableControl(pane);
    DeactivateControl(pane);
}

/// The panel being left goes first, so that the others read what it has written.
void HandOver(PDEShellContext& shell) {
    ForEachPanel(shell, [&](PanelRecord& panel) {
        if (panel.tabIndex == lastTabIndex)
            panel.operations.Sync(panel.context, shell.session, kSyncToTicket);
    });
    HideControl(shell.cover);
    ForEachPanel(shell, [&](PanelRecord& panel) {
        if (panel.tabIndex != lastTabIndex)
            panel.operations.Sync(panel.context, shell.session, kSyncToUI);
    });
}

}  // namespace

void selectPanel(SInt32 tabIndex, PDEShellContext* shell) {
    HandOver(*shell);
    ForEachPanel(*shell, [&](PanelRecord& panel) {
        if (panel.tabIndex != tabIndex) HidePane(panel.pane);
    });
    ForEachPanel(*shell, [&](PanelRecord& panel) {
        if (panel.tabIndex == tabIndex) ShowPane(panel.pane);
    });
    gCurrentPanel = tabIndex;
    lastTabIndex = tabIndex;
    ShowControl(shell->cover);
}

void StepPanel(SInt32 step, PDEShellContext* shell) {
    const SInt32 count = shell->panelCount;
    if (count == 0) return;
    const SInt32 next = gCurrentPanel + step;
    selectPanel(next < 1 ? count : next > count ? 1 : next, shell);
    SetControl32BitValue(shell->selector, gCurrentPanel);
}

}  // namespace kalmo
