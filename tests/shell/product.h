// The product's plug-in, found and made as a print dialog does.
#pragma once

#include "foundation/plug_in.h"
#include "support/bundles.h"
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

inline Owned<CFUUIDRef> UUID(CFStringRef text) {
    return Owned<CFUUIDRef>::Adopt(CFUUIDCreateFromString(kCFAllocatorDefault, text));
}

/// An instance for the type of dialog extensions.
inline void* CreateInstance() {
    Product();
    const auto type = UUID(CFSTR(kDialogExtensionTypeUUID));
    const auto factories = Owned<CFArrayRef>::Adopt(CFPlugInFindFactoriesForPlugInType(type));
    const auto factory = static_cast<CFUUIDRef>(CFArrayGetValueAtIndex(factories, 0));
    return CFPlugInInstanceCreate(kCFAllocatorDefault, factory, type);
}

}  // namespace kalmo::test
