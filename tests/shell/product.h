// The product's plug-in, found and made as a print dialog does.
#pragma once

#include "foundation/plug_in.h"
#include "support/pane_dialog.h"

namespace kalmo::test {

/// The product's bundle, registered once and kept.
inline CFBundleRef Product() {
    static const CFBundleRef bundle = [] {
        const CFBundleRef opened = OpenBundle(ProductBundle());
        CFPlugInRegisterBundle(opened);
        return opened;
    }();
    return bundle;
}

inline void* CreateInstance() {
    Product();
    const auto type = UUID(kDialogExtensionTypeUUID);
    const auto factories = Owned<CFArrayRef>::Adopt(CFPlugInFindFactoriesForPlugInType(type));
    return CFPlugInInstanceCreate(
        kCFAllocatorDefault, static_cast<CFUUIDRef>(CFArrayGetValueAtIndex(factories, 0)), type);
}

}  // namespace kalmo::test
