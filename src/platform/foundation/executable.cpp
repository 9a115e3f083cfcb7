// A bundle's executable: loaded once, asked for symbols by name, never unloaded.
#include <dlfcn.h>

#include <cstdio>

#include "foundation/bundle_private.h"
#include "foundation/url_private.h"

namespace {

/// The symbol only when it lies in that file: the loader also searches what the file depends on.
void* SymbolOf(CFBundleRef bundle, CFStringRef name) {
    if (!name || !CFBundleLoadExecutable(bundle)) return nullptr;
    void* const symbol = dlsym(bundle->handle, CFStringToUTF8(name).c_str());
    Dl_info where{};
    if (!symbol || !dladdr(symbol, &where) || !where.dli_fname) return nullptr;
    std::error_code error;
    return std::filesystem::equivalent(where.dli_fname, bundle->executable(), error) ? symbol
                                                                                     : nullptr;
}

std::filesystem::path& PlugInRoot() {
    static auto& root = *new std::filesystem::path("/");
    return root;
}

}  // namespace

Boolean CFBundleLoadExecutable(CFBundleRef bundle) {
    if (!bundle) return false;
    if (bundle->handle) return true;
    const auto file = bundle->executable();
    if (file.empty()) return false;
    bundle->handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!bundle->handle) std::fprintf(stderr, "%s\n", dlerror());
    return bundle->handle != nullptr;
}

void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef name) {
    return SymbolOf(bundle, name);
}

void* CFBundleGetDataPointerForName(CFBundleRef bundle, CFStringRef name) {
    return SymbolOf(bundle, name);
}

CFURLRef CopyPlugInRoot() {
    return kalmo::foundation::FileURLOf(PlugInRoot().string(), true).detach();
}

void SetPlugInRoot(CFURLRef folder) {
    if (const auto path = kalmo::foundation::FilePathOf(folder)) PlugInRoot() = *path;
}
