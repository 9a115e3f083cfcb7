#include "shell/base/current_session.h"

PMPrintSession gCurrentPrintSession = nullptr;

extern "C" {

PMPrintSession GetCurrentPrintSession() { return gCurrentPrintSession; }

OSStatus KalmoPDEProlog(PDEContext*, OSType*, CFStringRef*, CFStringRef*, UInt32*, UInt32*) {
    return noErr;
}

OSStatus KalmoPDEInitialize(PDEContext, UInt32*, void*, ControlRef, PMPrintSession session) {
    gCurrentPrintSession = session;
    return noErr;
}

OSStatus KalmoPDESync(PDEContext, PMPrintSession, Boolean) { return noErr; }

OSStatus KalmoPDEGetSummaryText(PDEContext, CFArrayRef*, CFArrayRef*) { return noErr; }

OSStatus KalmoPDEOpen(PDEContext) { return noErr; }

OSStatus KalmoPDEClose(PDEContext) { return noErr; }

OSStatus KalmoPDETerminate(PDEContext, OSStatus) {
    gCurrentPrintSession = nullptr;
    return noErr;
}

}  // extern "C"
