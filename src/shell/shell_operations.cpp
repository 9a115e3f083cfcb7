#include "shell/shell_operations.h"

#include <cstdio>
#include <new>

#include "controls/pictures.h"
#include "settings/feature_database.h"
#include "settings/installable_options.h"
#include "settings/manufacturer.h"
#include "settings/ppd_access.h"
#include "shell/base/current_session.h"
#include "shell/base/panel_interface.h"
#include "shell/base/plugin_bundle.h"
#include "shell/base/texts.h"
#include "shell/help_book.h"
#include "shell/panel_loader.h"
#include "shell/shell_events.h"
#include "shell/shell_layout.h"
#include "shell/shell_sync.h"

namespace kalmo {

PDEShellContext* gContext = nullptr;
SInt32 lastTabIndex = 0;
SInt32 gCurrentPanel = 0;

namespace PDEShell {
namespace {

constexpr UInt32 kPaneWidth = 540, kPaneHeight = 491;

PDEShellContext& Shell(PDEContext context) { return *static_cast<PDEShellContext*>(context); }

OSStatus Prologue(PDEContext* context, OSType* creator, CFStringRef* kind, CFStringRef* title,
                  UInt32* maximumWidth, UInt32* maximumHeight) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        const OSStatus status =
            KalmoPDEProlog(context, creator, kind, title, maximumWidth, maximumHeight);
        auto* shell = new (std::nothrow) PDEShellContext;
        *context = shell;
        if (!shell) return kPMInvalidPDEContext;
        gContext = shell;
        gBundle = shell->bundle = CFBundleGetBundleWithIdentifier(CFSTR(kKalmoBundleIdentifier));
        gCurrentPanel = 0;
        *maximumWidth = kPaneWidth;
        *maximumHeight = kPaneHeight;
        *creator = 'pde ';
        *kind = CFSTR("com.kalmo.print.pde.kalmofeatureskind");
        shell->title = CopyTextIfPresent(shell->bundle, CFSTR("PDE Shell"));
        if (shell->title) *title = shell->title;
        LoadBuiltInPanels(*shell);
        return status;
    });
}

OSStatus Refuse(const char* message) {
    std::fputs(message, stderr);
    return kPMInvalidPDEContext;
}

/// Opens what all panels share; the manufacturer is compared exactly.
bool OpenServices() {
    const PPDRef ppd = PPDGetCurrent();
    if (!ppd || PPDManufacturer(ppd) != kManufacturer) return false;
    KDPInitialize();
    LoadInstallableOptions(ppd, InstalledFeatures);
    return true;
}

void JoinDialog(PDEShellContext& shell, ControlRef parent, PMPrintSession session) {
    shell.parent = parent;
    shell.session = session;
    const WindowRef window = GetControlOwner(parent);
    GetWindowDefaultButton(window, &shell.defaultButton);
    GetWindowCancelButton(window, &shell.cancelButton);
    SetControlProperty(shell.defaultButton, 'KPDE', 'MBND', sizeof(CFBundleRef), &shell.bundle);
    RegisterMyHelpBook(shell);
    InstallDialogHandlers(shell);
}

OSStatus Initialize(PDEContext context, UInt32* flags, void* reference, ControlRef parent,
                    PMPrintSession session) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        KalmoPDEInitialize(context, flags, reference, parent, session);
        if (!session || !context) return kPMInvalidPDEContext;
        // The message names a ticket although the printer was refused: the wording is kept as it
        // is, since scripts and support staff look for this line.
        if (!OpenServices()) return Refuse("Initialize()::GetTicketFromSession() failed.\n");
        PDEShellContext& shell = Shell(context);
        JoinDialog(shell, parent, session);

        NibHolder nib;
        if (OpenNib(shell.bundle, kShellNib, &nib) != noErr)
            return Refuse("Initialize()::CreateNibReferenceWithCFBundle() failed.\n");
        WindowHolder window;
        if (OpenNibWindow(nib, kShellWindow, &window) != noErr)
            return Refuse("Initialize()::CreateWindowFromNib() failed.\n");
        CreatePanelPanes(shell, window.get());
        ForEachPanel(shell, [&](PanelRecord& panel) {
            panel.operations.Initialize(panel.context, flags, reference, panel.pane, session);
        });
        return Sync(context, session, kSyncToUI);
    });
}

OSStatus GetSummaryText(PDEContext context, CFArrayRef* titles, CFArrayRef* values) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        const OSStatus status = KalmoPDEGetSummaryText(context, titles, values);
        *titles = nullptr;
        *values = nullptr;
        if (!context) return kPMInvalidPDEContext;
        ForEachPanel(Shell(context), [&](PanelRecord& panel) {
            panel.operations.GetSummaryText(panel.context, titles, values);
        });
        return status;
    });
}

void OpenPanels(PDEShellContext& shell) {
    ForEachPanel(shell, [](PanelRecord& panel) { panel.operations.Open(panel.context); });
}

OSStatus Open(PDEContext context) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        const OSStatus status = KalmoPDEOpen(context);
        if (!context) return kPMInvalidPDEContext;
        PDEShellContext& shell = Shell(context);
        InstallOpenHandler(shell);
        if (!shell.openedOnce) {
            if (const OSStatus placed = PlaceShellPane(shell); placed != noErr) return placed;
            InstallPaneHandler(shell);
            shell.openedOnce = true;
        }
        OpenPanels(shell);
        ShowCurrentPanel(shell);
        return status;
    });
}

OSStatus Close(PDEContext context) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        const OSStatus status = KalmoPDEClose(context);
        if (!context) return kPMInvalidPDEContext;
        PDEShellContext& shell = Shell(context);
        ForEachPanel(shell, [](PanelRecord& panel) { panel.operations.Close(panel.context); });
        RemoveOpenHandler(shell);
        return status;
    });
}

void CloseServices() {
    PPDCloseCurrent();
    UnloadInstallableOptions();
    KDPFinalize();
}

OSStatus Terminate(PDEContext context, OSStatus dialogStatus) {
    return WithoutExceptions(kPMInvalidPDEContext, [&]() -> OSStatus {
        const OSStatus status = KalmoPDETerminate(context, dialogStatus);
        if (!context) return kPMInvalidPDEContext;
        const std::unique_ptr<PDEShellContext> shell(&Shell(context));
        ForEachPanel(*shell, [&](PanelRecord& panel) {
            panel.operations.Terminate(panel.context, dialogStatus);
        });
        RemoveAllHandlers(*shell);
        DisposePanes(*shell);
        ReleaseBundleImages();  // last: the panes' buttons show its pictures
        if (gContext == shell.get()) gContext = nullptr;
        CloseServices();
        return status;
    });
}

}  // namespace

const PDEInterfaceTable kOperations = {.Prologue = Prologue,
                                       .Initialize = Initialize,
                                       .Sync = Sync,
                                       .GetSummaryText = GetSummaryText,
                                       .Open = Open,
                                       .Close = Close,
                                       .Terminate = Terminate};

}  // namespace PDEShell
}  // namespace kalmo
