// The C boundary between a print dialog and a dialog extension: the plug-in object, the interface
// object and its ten operations.
//
// Order of calls, all on the dialog's main thread:
//    1 factory (allocator, type)            5 Initialize
//    2 QueryInterface                       6 Sync, Open, Close, GetSummaryText: any number
//    3 GetAPIVersion                        7 Terminate, also after a refused Initialize
//    4 Prologue                             8 Release, then IUnknownRelease
// Nothing is thrown across any of these; a status tells what happened.
#pragma once

#include "kalmo/statuses.h"
#include "kalmo/types.h"

struct CFUUIDBytes {
    UInt8 bytes[16];
};

struct PMPlugInAPIVersion {
    UInt32 buildVersionMajor;
    UInt32 buildVersionMinor;
    UInt32 baseVersionMajor;
    UInt32 baseVersionMinor;
};

/// A panel's or the shell's own record; only who made it in Prologue looks inside.
using PDEContext = void*;

/// The first word of every plug-in object points at such a table.
struct IUnknownTable {
    void* reserved;
    /// `out` receives a counted object, or null with 0x80000004 for an unknown interface.
    OSStatus (*QueryInterface)(void* instance, CFUUIDBytes interfaceID, void** out);
    /// The new count.
    UInt32 (*AddRef)(void* instance);
    /// The new count; 0 once the object is gone.
    UInt32 (*Release)(void* instance);
};

/// Sync's direction byte.
enum : Boolean { kSyncToTicket = 0, kSyncToUI = 1 };

struct PDEInterfaceTable {
    /// Counts up; always 0.
    OSStatus (*Retain)(void* object);
    /// Sets the caller's pointer to null, counts down, frees at zero; always 0.
    OSStatus (*Release)(void** object);
    /// Always 0.
    OSStatus (*GetAPIVersion)(void* object, PMPlugInAPIVersion* version);
    /// Makes the context. `kind` and `title` are lent until Terminate; sizes in pixels are the
    /// least that the pane needs. Called once, before everything else.
    OSStatus (*Prologue)(PDEContext* context, OSType* creator, CFStringRef* kind,
                         CFStringRef* title, UInt32* maximumWidth, UInt32* maximumHeight);
    /// `parent` and `session` are lent until Terminate. A failure is a refusal: the pane is not
    /// shown, and Terminate is the only call that follows.
    OSStatus (*Initialize)(PDEContext context, UInt32* flags, void* reference, ControlRef parent,
                           PMPrintSession session);
    /// Moves all values towards the ticket (0) or from it (1). Any time between Initialize and
    /// Terminate, whether the controls exist or not.
    OSStatus (*Sync)(PDEContext context, PMPrintSession session, Boolean direction);
    /// Both arrays are set, to null when there is nothing to tell; the caller releases them.
    OSStatus (*GetSummaryText)(PDEContext context, CFArrayRef* titles, CFArrayRef* values);
    /// Builds the controls the first time. Called when the pane becomes visible.
    OSStatus (*Open)(PDEContext context);
    /// Called when the pane is put away; it may be opened again.
    OSStatus (*Close)(PDEContext context);
    /// Frees the context. `status` tells how the dialog ended (0 printed).
    OSStatus (*Terminate)(PDEContext context, OSStatus status);
};
static_assert(sizeof(PDEInterfaceTable) == 10 * sizeof(void*));

/// What QueryInterface hands out for the dialog extension interface, and what a panel's interface
/// function gives (there with slots 0 to 2 empty).
struct PDEInterfaceObject {
    PDEInterfaceTable* table;
};

extern "C" {
/// The factory, named in the bundle's Info.plist.
using PDEFactory = void* (*)(CFAllocatorRef allocator, CFUUIDRef type);
/// A panel's interface function, named in PanelInterfaces.
using PanelInterfaceFunction = OSStatus (*)(PDEInterfaceObject** out);
}
