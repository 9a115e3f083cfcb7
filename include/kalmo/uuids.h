// The identifiers by which a print system finds the plug-in, its factory and its interface.
#pragma once

#include "kalmo/types.h"

/// The print dialog extension type that the factory accepts.
inline constexpr char kDialogExtensionTypeUUID[] = "BDB091F4-E57F-11D3-B5CC-0050E4603277";
/// This plug-in's factory.
inline constexpr char kKalmoFactoryUUID[] = "3C1E7A52-9D4B-4F86-A0E2-5B7C19D6E384";
/// The interface that QueryInterface hands out.
inline constexpr char kDialogExtensionInterfaceUUID[] = "A996FD7E-B738-11D3-8519-0050E4603277";
/// The interface that every plug-in object has.
inline constexpr UInt8 kIUnknownUUIDBytes[16] = {0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
                                                 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46};
/// The bundle identifier of the plug-in.
inline constexpr char kKalmoBundleIdentifier[] = "com.kalmo.print.pde.kalmofeatures.tolvane";
