#include "controls/nib_holders.h"

namespace kalmo {

OSStatus OpenNib(CFBundleRef bundle, CFStringRef name, NibHolder* nib) {
    IBNibRef made = nullptr;
    const OSStatus status = CreateNibReferenceWithCFBundle(bundle, name, &made);
    nib->reset(status == noErr ? made : nullptr);
    return status;
}

OSStatus OpenNibWindow(const NibHolder& nib, CFStringRef name, WindowHolder* window) {
    WindowRef made = nullptr;
    const OSStatus status = CreateWindowFromNib(nib.get(), name, &made);
    window->reset(status == noErr ? made : nullptr);
    return status;
}

}  // namespace kalmo
