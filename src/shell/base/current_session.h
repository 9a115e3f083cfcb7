// The print session between Initialize and Terminate, and the C glue that each operation calls
// first.
#pragma once

#include "foundation/collections.h"
#include "kalmo/pde.h"

/// The session of the running dialog; null outside Initialize ... Terminate.
extern PMPrintSession gCurrentPrintSession;

extern "C" {
[[gnu::visibility("default")]] PMPrintSession GetCurrentPrintSession();

// The first is spelled without "ue": kept as it is, the name is fixed. Each returns 0. Only
// Initialize and Terminate do anything: they set and clear the session.
OSStatus KalmoPDEProlog(PDEContext* context, OSType* creator, CFStringRef* kind, CFStringRef* title,
                        UInt32* maximumWidth, UInt32* maximumHeight);
OSStatus KalmoPDEInitialize(PDEContext context, UInt32* flags, void* reference, ControlRef parent,
                            PMPrintSession session);
OSStatus KalmoPDESync(PDEContext context, PMPrintSession session, Boolean direction);
OSStatus KalmoPDEGetSummaryText(PDEContext context, CFArrayRef* titles, CFArrayRef* values);
OSStatus KalmoPDEOpen(PDEContext context);
OSStatus KalmoPDEClose(PDEContext context);
OSStatus KalmoPDETerminate(PDEContext context, OSStatus status);
}
