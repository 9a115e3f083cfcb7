// The dialog extension as a loaded plug-in: where its bundle lies, its object, its ten operations.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/bundle.h"
#include "kalmo/pde.h"

namespace kalmo {

/// The extension's bundle, from the build tree or from where it is installed beside the running
/// program; null when it is in neither. The caller releases it.
[[nodiscard]] CFBundleRef OpenExtensionBundle();

/// The interface function behind a name of --panels; null for an unknown name.
[[nodiscard]] const char* PanelInterfaceName(std::string_view panel);

/// Further panels, offered to the extension from construction to destruction.
class OfferedPanels final {
public:
    /// `panels` are names known to PanelInterfaceName.
    OfferedPanels(CFBundleRef bundle, const std::vector<std::string>& panels);
    ~OfferedPanels();
    OfferedPanels(const OfferedPanels&) = delete;
    OfferedPanels& operator=(const OfferedPanels&) = delete;

private:
    std::vector<CFStringRef*> slots_;
};

/// The plug-in's object and interface, given back at destruction.
class Extension final {
public:
    /// Factory, QueryInterface, GetAPIVersion. Null when the bundle has no extension of a known
    /// version.
    [[nodiscard]] static std::unique_ptr<Extension> Create(CFBundleRef bundle);
    ~Extension();
    Extension(const Extension&) = delete;
    Extension& operator=(const Extension&) = delete;

    [[nodiscard]] const PDEInterfaceTable& operations() const { return *interface_->table; }

private:
    Extension() = default;
    IUnknownTable** object_ = nullptr;
    PDEInterfaceObject* interface_ = nullptr;
};

}  // namespace kalmo
