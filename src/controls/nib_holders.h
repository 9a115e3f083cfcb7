// Holders of an interface file and of a window made from it.
#pragma once

#include <memory>

#include "toolbox/windows.h"

namespace kalmo {

struct NibDeleter {
    void operator()(IBNibRef nib) const { DisposeNibReference(nib); }
};
using NibHolder = std::unique_ptr<OpaqueNib, NibDeleter>;

struct WindowDeleter {
    void operator()(WindowRef window) const { DisposeWindow(window); }
};
using WindowHolder = std::unique_ptr<OpaqueWindow, WindowDeleter>;

/// The status of the call; on failure `*nib` is empty.
OSStatus OpenNib(CFBundleRef bundle, CFStringRef name, NibHolder* nib);
OSStatus OpenNibWindow(const NibHolder& nib, CFStringRef name, WindowHolder* window);

}  // namespace kalmo
