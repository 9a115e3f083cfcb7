// The plug-in registry: which bundle's factory makes which type of object.
//
// Info.plist: CFPlugInFactories maps a factory UUID to the name of its function; CFPlugInTypes maps
// a type UUID to an array of factory UUIDs.
#pragma once

#include "foundation/bundle.h"
#include "foundation/uuid.h"

#pragma GCC visibility push(default)

/// Reads the two tables of the bundle's Info.plist; true when at least one factory was registered.
Boolean CFPlugInRegisterBundle(CFBundleRef bundle);
/// Factory UUIDs (CFUUIDRef) that make objects of the type. The caller releases the array.
[[nodiscard]] CFArrayRef CFPlugInFindFactoriesForPlugInType(CFUUIDRef type);
/// Loads the factory's bundle and calls it. Null when unknown or refused.
[[nodiscard]] void* CFPlugInInstanceCreate(CFAllocatorRef, CFUUIDRef factory, CFUUIDRef type);
/// An instance of the factory lives; counts up.
void CFPlugInAddInstanceForFactory(CFUUIDRef factory);
void CFPlugInRemoveInstanceForFactory(CFUUIDRef factory);
/// Living instances of the factory.
[[nodiscard]] CFIndex CFPlugInInstanceCount(CFUUIDRef factory);

#pragma GCC visibility pop
