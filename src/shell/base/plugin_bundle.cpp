#include "shell/base/plugin_bundle.h"

CFBundleRef gBundle = nullptr;

extern "C" CFBundleRef GetPDEBundle() { return gBundle; }

namespace kalmo {

bool LoadPrivateBundle(CFBundleRef bundle, CFStringRef name, CFBundleRef* plugin) {
    if (!plugin) return false;
    *plugin = nullptr;
    if (!bundle || !name) return false;
    const auto folder = Owned<CFURLRef>::Adopt(CFBundleCopyBuiltInPlugInsURL(bundle));
    if (!folder) return false;
    const auto url = Owned<CFURLRef>::Adopt(
        CFURLCreateCopyAppendingPathComponent(kCFAllocatorDefault, folder, name, true));
    if (!url) return false;
    auto found = Owned<CFBundleRef>::Adopt(CFBundleCreate(kCFAllocatorDefault, url));
    if (!found || !CFBundleLoadExecutable(found)) return false;
    *plugin = found.detach();
    return true;
}

}  // namespace kalmo
