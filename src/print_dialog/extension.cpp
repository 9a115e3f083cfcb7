#include "print_dialog/extension.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "foundation/plug_in.h"
#include "kalmo/uuids.h"

namespace kalmo {
namespace {

/// Relative to the program's folder: the build tree, then the installed place. No variable of the
/// environment can point a print dialog at other code.
constexpr const char* kBundlePlaces[] = {"../KalmoFeatures.plugin",
                                         KALMO_INSTALLED_BUNDLE_FROM_PROGRAM};

struct PanelRow {
    std::string_view panel;
    const char* interfaceFunction;
};
constexpr PanelRow kPanels[] = {
    {"special-pages", "_GetSpecialPagesPanelInterface"},
    {"job-notes", "GetJobNotesPanelInterface"},
};

/// Length of the extension's table of names, its end included.
constexpr int kPanelSlots = 12;

Owned<CFUUIDRef> UUIDFromText(const char* text) {
    const auto string = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(text));
    return Owned<CFUUIDRef>::Adopt(CFUUIDCreateFromString(kCFAllocatorDefault, string));
}

IUnknownTable** CreateObject(CFBundleRef bundle) {
    if (!CFPlugInRegisterBundle(bundle)) return nullptr;
    const auto type = UUIDFromText(kDialogExtensionTypeUUID);
    const auto factory = UUIDFromText(kKalmoFactoryUUID);
    const auto factories = Owned<CFArrayRef>::Adopt(CFPlugInFindFactoriesForPlugInType(type));
    const CFRange all = {0, CFArrayGetCount(factories)};
    if (!CFArrayContainsValue(factories, all, factory.get())) return nullptr;
    return static_cast<IUnknownTable**>(CFPlugInInstanceCreate(kCFAllocatorDefault, factory, type));
}

bool IsKnownVersion(PDEInterfaceObject* interface) {
    PMPlugInAPIVersion version = {};
    return interface->table->GetAPIVersion(interface, &version) == noErr &&
           version.buildVersionMajor == 1 && version.baseVersionMajor == 1;
}

}  // namespace

CFBundleRef OpenExtensionBundle() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    for (const char* place : kBundlePlaces) {
        const auto folder = Owned<CFStringRef>::Adopt(
            CFStringCreateFromUTF8((program / place).lexically_normal().string()));
        const auto url = Owned<CFURLRef>::Adopt(
            CFURLCreateWithFileSystemPath(kCFAllocatorDefault, folder, true));
        if (CFBundleRef bundle = CFBundleCreate(kCFAllocatorDefault, url)) return bundle;
    }
    return nullptr;
}

const char* PanelInterfaceName(std::string_view panel) {
    const auto* row = std::ranges::find(kPanels, panel, &PanelRow::panel);
    return row == std::end(kPanels) ? nullptr : row->interfaceFunction;
}

OfferedPanels::OfferedPanels(CFBundleRef bundle, const std::vector<std::string>& panels) {
    if (panels.empty()) return;
    auto* names =
        static_cast<CFStringRef*>(CFBundleGetDataPointerForName(bundle, CFSTR("PanelInterfaces")));
    if (!names) return;
    auto* const last = names + kPanelSlots - 1;  // stays null, the end of the table
    auto* slot = std::find(names, last, nullptr);
    for (const auto& panel : panels) {
        const auto name = CFStringMakeConstant(PanelInterfaceName(panel));
        if (slot == last || std::find(names, slot, name) != slot) continue;
        *slot = name;
        slots_.push_back(slot++);
    }
}

OfferedPanels::~OfferedPanels() {
    for (CFStringRef* slot : slots_) *slot = nullptr;
}

std::unique_ptr<Extension> Extension::Create(CFBundleRef bundle) {
    std::unique_ptr<Extension> made(new Extension);
    made->object_ = CreateObject(bundle);
    if (!made->object_) return nullptr;
    const auto wanted = UUIDFromText(kDialogExtensionInterfaceUUID);
    void* interface = nullptr;
    if ((*made->object_)->QueryInterface(made->object_, CFUUIDGetUUIDBytes(wanted), &interface) ==
        noErr) {
        made->interface_ = static_cast<PDEInterfaceObject*>(interface);
    }
    // Short of memory, the query succeeds without an object or without its table.
    const bool usable = made->interface_ && made->interface_->table;
    return usable && IsKnownVersion(made->interface_) ? std::move(made) : nullptr;
}

Extension::~Extension() {
    if (interface_ && interface_->table) {
        void* interface = interface_;
        interface_->table->Release(&interface);
    }
    if (object_) (*object_)->Release(object_);
}

}  // namespace kalmo
