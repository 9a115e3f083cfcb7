// The plug-in object, the interface object and the factory that a print system finds by name.
#pragma once

#include "foundation/uuid.h"
#include "kalmo/pde.h"

namespace kalmo {

/// What the factory makes. Its first word points into itself: it is never copied or moved.
struct PluginInstance {
    const IUnknownTable* interfaceTable;
    IUnknownTable unknown;
    CFUUIDRef factory;  // owned; registered with the platform while the instance lives
    UInt32 references;
};

/// What QueryInterface makes for the dialog extension interface, anew at each request.
struct PDEInterfaceRecord {
    PDEInterfaceTable* table;  // owned
    UInt32 references;
};

}  // namespace kalmo

/// A PluginInstance counted once, or null for another type or when memory is short.
extern "C" [[gnu::visibility("default")]] void* KalmoPDEPluginFactory(CFAllocatorRef allocator,
                                                                      CFUUIDRef typeUUID);
