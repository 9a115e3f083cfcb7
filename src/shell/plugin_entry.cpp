#include "shell/plugin_entry.h"

#include <cstring>
#include <new>

#include "foundation/plug_in.h"
#include "kalmo/uuids.h"
#include "shell/base/panel_interface.h"
#include "shell/shell_operations.h"

namespace kalmo {
namespace {

PluginInstance* Instance(void* object) { return static_cast<PluginInstance*>(object); }
PDEInterfaceRecord* Interface(void* object) { return static_cast<PDEInterfaceRecord*>(object); }

Owned<CFUUIDRef> CreateUUID(const char* text) {
    return Owned<CFUUIDRef>::Adopt(
        CFUUIDCreateFromString(kCFAllocatorDefault, CFStringMakeConstant(text)));
}

OSStatus Retain(void* object) {
    if (object) ++Interface(object)->references;
    return noErr;
}

OSStatus Release(void** object) {
    if (!object || !*object) return noErr;
    PDEInterfaceRecord* record = Interface(*object);
    *object = nullptr;
    if (--record->references > 0) return noErr;
    delete record->table;
    delete record;
    return noErr;
}

OSStatus GetAPIVersion(void*, PMPlugInAPIVersion* version) {
    *version = {.buildVersionMajor = 1,
                .buildVersionMinor = 0,
                .baseVersionMajor = 1,
                .baseVersionMinor = 0};
    return noErr;
}

/// Null, or without a table, when memory is short; QueryInterface answers 0 all the same (kept as
/// it is: hosts look at the object).
PDEInterfaceRecord* CreateInterface() {
    auto* record = new (std::nothrow) PDEInterfaceRecord{.table = nullptr, .references = 1};
    if (!record) return nullptr;
    record->table = new (std::nothrow) PDEInterfaceTable(PDEShell::kOperations);
    if (!record->table) return record;
    record->table->Retain = Retain;
    record->table->Release = Release;
    record->table->GetAPIVersion = GetAPIVersion;
    return record;
}

CFUUIDRef UnknownInterface() {
    CFUUIDBytes bytes;
    static_assert(sizeof bytes == sizeof kIUnknownUUIDBytes);
    std::memcpy(bytes.bytes, kIUnknownUUIDBytes, sizeof bytes);
    return CFUUIDGetConstantUUIDWithBytes(kCFAllocatorDefault, bytes);
}

OSStatus QueryInterface(void* instance, CFUUIDBytes interfaceID, void** out) {
    *out = nullptr;
    return WithoutExceptions(kENoInterface, [&]() -> OSStatus {
        const auto requested =
            Owned<CFUUIDRef>::Adopt(CFUUIDCreateFromUUIDBytes(kCFAllocatorDefault, interfaceID));
        const auto extension = CreateUUID(kDialogExtensionInterfaceUUID);
        if (CFEqual(requested, UnknownInterface())) {
            Instance(instance)->interfaceTable->AddRef(instance);
            *out = instance;
            return noErr;
        }
        if (!CFEqual(requested, extension)) return kENoInterface;
        *out = CreateInterface();
        return noErr;
    });
}

UInt32 IUnknownAddRef(void* instance) { return instance ? ++Instance(instance)->references : 0; }

UInt32 IUnknownRelease(void* object) {
    PluginInstance* instance = Instance(object);
    if (!instance || instance->references == 0) return 0;
    if (--instance->references > 0) return instance->references;
    WithoutExceptions(noErr, [&]() -> OSStatus {
        CFPlugInRemoveInstanceForFactory(instance->factory);
        return noErr;
    });
    CFRelease(instance->factory);
    delete instance;
    return 0;
}

PluginInstance* CreateInstance(Owned<CFUUIDRef> factory) {
    auto* instance = new (std::nothrow) PluginInstance{
        .unknown = {nullptr, QueryInterface, IUnknownAddRef, IUnknownRelease}, .references = 1};
    if (!instance) return nullptr;
    instance->interfaceTable = &instance->unknown;
    instance->factory = factory.detach();
    CFPlugInAddInstanceForFactory(instance->factory);
    return instance;
}

}  // namespace
}  // namespace kalmo

extern "C" void* KalmoPDEPluginFactory(CFAllocatorRef, CFUUIDRef typeUUID) {
    using namespace kalmo;
    try {
        auto factory = CreateUUID(kKalmoFactoryUUID);
        const auto type = CreateUUID(kDialogExtensionTypeUUID);
        return CFEqual(typeUUID, type) ? CreateInstance(std::move(factory)) : nullptr;
    } catch (...) {
        return nullptr;
    }
}
