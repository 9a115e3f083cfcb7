// A plug-in that makes one object, for tests of bundles and the plug-in registry.
#include <cstdio>

extern "C" [[gnu::visibility("default")]] void* TestPlugInFactory(const void*, const void*) {
    static int object = 0;
    std::fputs("", stdout);  // so that the library depends on the C library's symbols
    return &object;
}
