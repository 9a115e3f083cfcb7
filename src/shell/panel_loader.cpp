#include "shell/panel_loader.h"

#include <new>

#include "shell/base/panel_interface.h"

CFStringRef PanelInterfaces[kPanelSlots] = {
    CFSTR("GetPaperOutputPanelInterface"),
    CFSTR("GetImageOptionsPanelInterface"),
    CFSTR("GetBookletWatermarkPanelInterface"),
    CFSTR("GetAdvancedPanelInterface"),
};

namespace kalmo {
namespace {

constexpr char kColorPanelPath[] = "Library/Printers/Kalmo/PDEs/ColorOptions.plugin";
constexpr std::size_t kFirstRoom = 10;

using PanelInterface =
    std::unique_ptr<PDEInterfaceObject,
                    decltype([](PDEInterfaceObject* object) { DisposePanelInterface(object); })>;

Owned<CFBundleRef> CreateColorBundle() {
    const auto root = Owned<CFURLRef>::Adopt(CopyPlugInRoot());
    const auto folder = Owned<CFURLRef>::Adopt(CFURLCreateCopyAppendingPathComponent(
        kCFAllocatorDefault, root, CFSTR(kColorPanelPath), true));
    return Owned<CFBundleRef>::Adopt(CFBundleCreate(kCFAllocatorDefault, folder));
}

/// The colour options come in a plug-in of their own; all other panels lie in this one.
Owned<CFBundleRef> BundleOfPanel(const PDEShellContext& shell, CFStringRef name) {
    if (CFEqual(name, CFSTR("GetColorOptionPanelInterface"))) return CreateColorBundle();
    return Owned<CFBundleRef>::Retain(shell.bundle);
}

PanelInterface CreateInterface(CFBundleRef bundle, CFStringRef name) {
    const auto create = reinterpret_cast<PanelInterfaceFunction>(
        bundle ? CFBundleGetFunctionPointerForName(bundle, name) : nullptr);
    PDEInterfaceObject* object = nullptr;
    if (create) create(&object);
    return PanelInterface(object);
}

/// Whether the seven operations are there; slots 0 to 2 are empty in a panel.
bool IsComplete(const PDEInterfaceTable& table) {
    return table.Prologue && table.Initialize && table.Sync && table.GetSummaryText && table.Open &&
           table.Close && table.Terminate;
}

Owned<CFStringRef> Copy(CFStringRef string) {
    return string ? Owned<CFStringRef>::Adopt(CFStringCreateCopy(kCFAllocatorDefault, string))
                  : Owned<CFStringRef>();
}

/// False when the panel does not want to be shown.
bool CallPrologue(const PDEInterfaceTable& operations, PanelRecord* panel) {
    OSType creator = 0;
    CFStringRef kind = nullptr, title = nullptr;
    UInt32 width = 0, height = 0;
    if (!operations.Prologue ||
        operations.Prologue(&panel->context, &creator, &kind, &title, &width, &height) != noErr)
        return false;
    panel->operations = operations;
    panel->title = Copy(title);
    panel->kind = Copy(kind);
    return true;
}

/// Room for ten at first, then for one more each time.
void MakeRoom(std::vector<PanelRecord>& panels) {
    if (panels.size() < panels.capacity()) return;
    panels.reserve(panels.empty() ? kFirstRoom : panels.size() + 1);
}

void LoadPanel(PDEShellContext& shell, CFStringRef name) {
    PanelRecord panel;
    panel.plugIn = BundleOfPanel(shell, name);
    const PanelInterface interface = CreateInterface(panel.plugIn, name);
    if (!interface || !interface->table || !IsComplete(*interface->table)) return;
    MakeRoom(shell.panels);
    if (!CallPrologue(*interface->table, &panel)) return;
    panel.tabIndex = ++shell.panelCount;
    shell.panels.push_back(std::move(panel));
}

}  // namespace

void LoadBuiltInPanels(PDEShellContext& shell) try {
    if (!shell.bundle) return;
    for (const CFStringRef name : PanelInterfaces) {
        if (!name) return;
        LoadPanel(shell, name);
    }
} catch (const std::bad_alloc&) {
    // Without room for another record the panels that are there have to do.
}

}  // namespace kalmo
