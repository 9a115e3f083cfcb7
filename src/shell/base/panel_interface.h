// What every panel shares: the three common fields of its context, and the operation table whose
// entries turn exceptions into statuses.
#pragma once

#include <new>

#include "foundation/bundle.h"
#include "kalmo/pde.h"
#include "kalmo/uuids.h"

namespace kalmo {

/// The first fields of every panel's context.
struct PanelContext {
    /// Set by the first Open; the controls exist from then on.
    bool opened = false;
    CFBundleRef bundle = nullptr;  // lent
    Owned<CFStringRef> title;
    // From Initialize on; all lent. The session is that of the last Sync.
    ControlRef pane = nullptr;
    PMPrintSession session = nullptr;
    struct ppd_file_s* ppd = nullptr;
};

/// Runs `operation`, nothing thrown comes out: `failure` instead.
template <typename Operation>
OSStatus WithoutExceptions(OSStatus failure, Operation&& operation) noexcept {
    try {
        return operation();
    } catch (...) {
        return failure;
    }
}

/// Makes a panel's interface object with `operations` in slots 3 to 9 and slots 0 to 2 empty; null
/// when memory is short. Always 0. Object and table come from malloc, as those of a panel in
/// another plug-in do, so that the owner, the shell, gives any panel's back with
/// DisposePanelInterface.
OSStatus CreatePanelInterface(const PDEInterfaceTable& operations, PDEInterfaceObject** out);
void DisposePanelInterface(PDEInterfaceObject* object);

/// Fills what Prologue answers the same for every panel, and the common fields: bundle, title (the
/// text of `titleKey`, answered only when found), creator 'Kshl', kind, no least size.
void AnswerPanelPrologue(PanelContext& context, CFStringRef titleKey, OSType* creator,
                         CFStringRef* kind, CFStringRef* title, UInt32* maximumWidth,
                         UInt32* maximumHeight);

}  // namespace kalmo
