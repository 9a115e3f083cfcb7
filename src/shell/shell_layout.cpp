#include "shell/shell_layout.h"

#include <utility>

#include "controls/panel_layout.h"
#include "controls/pictures.h"
#include "shell/base/texts.h"
#include "shell/panel_switching.h"
#include "toolbox/menus.h"

namespace kalmo {
namespace {

ControlRef ShellControl(WindowRef window, SInt32 id) {
    ControlRef control = nullptr;
    GetControlByID(window, {'Kshl', id}, &control);
    return control;
}

Rect BoundsOf(ControlRef control) {
    Rect bounds;
    GetControlBounds(control, &bounds);
    return bounds;
}

/// Takes the pane out of its window, which goes away with what is left in it.
OSStatus UnpackShellPane(PDEShellContext& shell) {
    NibHolder nib;
    if (const OSStatus status = OpenNib(shell.bundle, kShellNib, &nib); status != noErr)
        return status;
    WindowHolder window;
    if (const OSStatus status = OpenNibWindow(nib, kShellWindow, &window); status != noErr)
        return status;
    shell.shellPane = ShellControl(window.get(), 10);
    shell.cover = ShellControl(window.get(), 15);
    shell.selector = ShellControl(window.get(), 16);
    shell.container = ShellControl(window.get(), 17);
    if (!shell.shellPane) return controlNotFoundErr;
    EmbedCentred(shell.shellPane, shell.parent);
    shell.nibLoaded = true;
    return noErr;
}

void FillSelector(PDEShellContext& shell) {
    const MenuRef menu = GetControlPopupMenu(shell.selector);
    DeleteMenuItems(menu, 1, CountMenuItems(menu));
    ForEachPanel(shell, [&](PanelRecord& panel) {
        const CFStringRef title = panel.title ? panel.title.get() : CFSTR(kStringNotFound);
        InsertMenuItemTextWithCFString(menu, title, static_cast<UInt16>(panel.tabIndex - 1),
                                       kMenuItemPlain, 0);
    });
    SetControl32BitMaximum(shell.selector, CountMenuItems(menu));
}

/// A button without its picture would be an empty square.
void GiveStepButtonPicture(PDEShellContext& shell, SInt32 id, CFStringRef fileName) {
    const ControlRef button = ShellControl(GetControlOwner(shell.shellPane), id);
    ImageCache* const images = BundleImages();
    const PictureRef picture = images ? images->picture(fileName) : nullptr;
    SetControlPicture(button, picture);
    if (!picture) HideControl(button);
}

}  // namespace

void CreatePanelPanes(PDEShellContext& shell, WindowRef shellWindow) {
    const Rect bounds = BoundsOf(ShellControl(shellWindow, 17));
    ForEachPanel(shell, [&](PanelRecord& panel) {
        CreateUserPaneControl(GetControlOwner(shell.parent), bounds, &panel.pane);
        SetControlID(panel.pane, {'KSgb', panel.tabIndex});
        HideControl(panel.pane);
    });
}

OSStatus PlaceShellPane(PDEShellContext& shell) {
    if (!shell.nibLoaded)
        if (const OSStatus status = UnpackShellPane(shell); status != noErr) return status;
    ShowControl(shell.shellPane);
    FillSelector(shell);
    GiveStepButtonPicture(shell, 1966, CFSTR("ButtonGraphic_MacUp.png"));
    GiveStepButtonPicture(shell, 1967, CFSTR("ButtonGraphic_MacDown.png"));
    ForEachPanel(shell, [&](PanelRecord& panel) { EmbedCentred(panel.pane, shell.container); });
    return noErr;
}

void ShowCurrentPanel(PDEShellContext& shell) {
    if (gCurrentPanel == 0) gCurrentPanel = 1;
    selectPanel(gCurrentPanel, &shell);
    SetControl32BitValue(shell.selector, gCurrentPanel);
}

void DisposePanes(PDEShellContext& shell) {
    ForEachPanel(shell,
                 [](PanelRecord& panel) { DisposeControl(std::exchange(panel.pane, nullptr)); });
    DisposeControl(std::exchange(shell.shellPane, nullptr));
}

}  // namespace kalmo
