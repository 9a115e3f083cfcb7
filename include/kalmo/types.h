// The scalar types, status type and opaque handles that the platform, the plug-in and the host
// share.
//
// A handle named ...Ref is borrowed wherever it is passed. Functions named Create or Copy return a
// reference that the caller releases; functions named Get lend one.
#pragma once

#include <cstdint>

using Boolean = unsigned char;
using UInt8 = std::uint8_t;
using SInt16 = std::int16_t;
using UInt16 = std::uint16_t;
using SInt32 = std::int32_t;
using UInt32 = std::uint32_t;
using SInt64 = std::int64_t;
using UInt64 = std::uint64_t;
using Float32 = float;
using Float64 = double;
using UniChar = char16_t;

/// A signed 32-bit platform status; 0 is success (statuses.h names the others).
using OSStatus = SInt32;
/// A four-character code, 'KPDE' and the like, the first character in the highest byte.
using OSType = UInt32;

/// Positions, counts and the number kind of the tickets.
using CFIndex = std::int64_t;
/// Which kind of value an object is; compare with CFStringGetTypeID() and its like.
using CFTypeID = std::uintptr_t;
/// Any counted value.
using CFTypeRef = const void*;

// Counted values (foundation). The structures are private to the platform library.
using CFAllocatorRef = const struct CFAllocatorObject*;
using CFStringRef = const struct CFStringObject*;
using CFMutableStringRef = struct CFStringObject*;
using CFNumberRef = const struct CFNumberObject*;
using CFBooleanRef = const struct CFBooleanObject*;
using CFArrayRef = const struct CFArrayObject*;
using CFMutableArrayRef = struct CFArrayObject*;
using CFDictionaryRef = const struct CFDictionaryObject*;
using CFMutableDictionaryRef = struct CFDictionaryObject*;
using CFDataRef = const struct CFDataObject*;
using CFMutableDataRef = struct CFDataObject*;
using CFDateRef = const struct CFDateObject*;
using CFURLRef = const struct CFURLObject*;
using CFUUIDRef = const struct CFUUIDObject*;
using CFCharacterSetRef = const struct CFCharacterSetObject*;
using CFBundleRef = struct CFBundleObject*;
/// A property list is any of string, number, boolean, date, data, array, dictionary.
using CFPropertyListRef = CFTypeRef;

// Print session and printer (printing). Counted like values: CFRetain, CFRelease.
using PMPrintSession = struct PMPrintSessionObject*;
using PMPrinter = struct PMPrinterObject*;
/// A ticket is an entry of the platform's ticket table: a number, never an address. 0 is no ticket.
using PMTicketRef = UInt32;
inline constexpr PMTicketRef kPMNoTicket = 0;

// Graphics. Counted like values: CFRetain, CFRelease, Owned.
using CGContextRef = struct CGContextObject*;
using CGImageRef = const struct CGImageObject*;
using CGDataConsumerRef = struct CGDataConsumerObject*;
using CGDataProviderRef = struct CGDataProviderObject*;
using CGPDFDocumentRef = const struct CGPDFDocumentObject*;
using GraphicsImportComponent = struct GraphicsImporterObject*;
using ATSUStyle = struct ATSUStyleObject*;
using ATSUTextLayout = struct ATSUTextLayoutObject*;
/// A font is an entry of the platform's font table: a number, never an address. 0 is no font.
using ATSFontRef = UInt32;

// Toolbox. A control, a window and a menu are borrowed widgets; their owner is the widget tree.
using ControlRef = struct OpaqueControl*;
using WindowRef = struct OpaqueWindow*;
using MenuRef = struct OpaqueMenu*;
using IBNibRef = struct OpaqueNib*;
using PictureRef = struct OpaquePicture*;
using DrawingRef = struct OpaqueDrawing*;
using EventRef = struct OpaqueEvent*;
using EventHandlerRef = struct OpaqueEventHandler*;
using EventHandlerCallRef = struct OpaqueEventHandlerCall*;
/// Freed by DisposeWorker.
using WorkerRef = struct OpaqueWorker*;

/// A rectangle in pixels of the containing view; right and bottom lie just outside.
struct Rect {
    SInt32 top = 0, left = 0, bottom = 0, right = 0;
};
